// The router of the main window's commands: all of them travel by number.
#pragma once

#include "engine/mainwindow/mod_CommandTable.h"

namespace tessel {

class Commands {
public:
    explicit Commands(const CommandTargets& targets) : m_targets(targets) {}

    // Carries out a command. `row`: the row of a location that it starts from, nullptr for none; `text`:
    // of the quick menu's text box. An unknown number does nothing, nor one that cannot be used now.
    void Execute(int number, const ReportRecord* row = nullptr, const QString& text = {});

    // Whether a command can be used now; false for a number that is no command, as with `checked`.
    bool enabled(int number, const ReportRecord* row = nullptr) const;
    bool checked(int number) const;
    // Whether it is to be seen at all, by what the program may do on this computer.
    bool offered(const CommandRow& row) const;
    // The caption as it is now, for a command of a row as that row has it; "&" in a name is doubled.
    QString caption(int number, const ReportRecord* row = nullptr) const;
    QString tip(int number) const;
    // The number of the command whose picture it shows.
    int picture(int number, const ReportRecord* row = nullptr) const;

    bool isOwn(const ReportRecord& row) const;
    // What makes a quick alert's text one for a colour tag.
    const QString& quickAlertPrefix() const;
    // The snippets that it offers for a message.
    const QStringList& snippets() const;
    // Commands of the groups that can be written to, and of the first free slot, if there is one.
    std::vector<int> groups() const;
    // Heading of a row's quick menu.
    QString quickMenuHeading(const ReportRecord& row) const;

private:
    CommandTargets m_targets;
};

} // namespace tessel
