// Files of the data folder that this program cannot read, and would write anew.
#pragma once

#include <QString>

namespace tessel {

class Folders;

// Puts every list or settings file aside that is there and cannot be read: one without the right to read
// it, a folder of that name, settings in another encoding. To be called before anything is loaded; user.cfg
// is the identity's affair, and tsa.dat the administrator's. A text for the log and the user; empty when
// all is in order.
QString PutAsideDamagedFiles(const Folders& folders);

} // namespace tessel
