// Keeps a test run away from the data of whoever runs it.
#pragma once

#include <QTemporaryDir>

namespace tessel {

// Every folder that the system names for a user lies below a temporary one while this lives. Must
// be made before the application object, which reads some of them.
class PrivateFolders {
public:
    PrivateFolders() {
        if (!m_home.isValid()) {
            qFatal("no temporary folder: %s", qPrintable(m_home.errorString()));
        }
        const QByteArray home = m_home.path().toLocal8Bit();
        qputenv("HOME", home);
        qputenv("XDG_DATA_HOME", home + "/data");
        qputenv("XDG_CONFIG_HOME", home + "/config");
        qputenv("XDG_CACHE_HOME", home + "/cache");
        // This one must exist and be private, or Qt complains and takes another.
        qputenv("XDG_RUNTIME_DIR", home);
    }

private:
    QTemporaryDir m_home;
};

} // namespace tessel
