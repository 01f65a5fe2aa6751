// The text of files that tell a desktop how to start a program.
#pragma once

#include <QString>

namespace tessel {

// One word of a command line, whatever it holds.
QString quotedForExec(const QString& word);
// A value of a key: control characters become blanks.
QString entryValue(const QString& text);

} // namespace tessel
