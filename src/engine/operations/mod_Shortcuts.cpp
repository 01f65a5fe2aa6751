#include "engine/operations/mod_Shortcuts.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_DesktopEntry.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/ports/cSession.h"

#include <QFile>
#include <QStandardPaths>

namespace tessel {

namespace {
const QString kLineBreak = QStringLiteral("\r\n");
const QString kClient = QStringLiteral("tslapp");
} // namespace

Shortcuts::Answer Shortcuts::create(int slot, const QString& name, const QString& message) {
    const QString number = QString::number(slot + 1);
    const QString shownName = name.trimmed();
    if (shownName.isEmpty()) {
        return {QLatin1String("Missing Status Name ") + number,
                QStringLiteral("Please enter a name for this Status")};
    }
    if (message.trimmed().isEmpty()) {
        return {QLatin1String("Missing Status Message ") + number,
                QStringLiteral("Please enter a Message for this Status")};
    }
    const QString hotKey = QLatin1String("Ctrl+Alt+") + number;
    const QString description = shownName + u' ' + hotKey;
    const QString arguments = QStringLiteral("/s:%1").arg(slot);
    const QString link = m_folders.desktop() + description + QLatin1String(".desktop");
    // A name must not lead out of the desktop's folder.
    if (description.contains(u'/') || m_folders.desktop().isEmpty() ||
        !CreateDesktopShortcut(link, m_folders.program() + kClient, description, arguments, shownName)) {
        return {kProductName, QLatin1String("The Shortcut could not be written to your Desktop.") +
                                  kLineBreak + kLineBreak + QLatin1String("Shortcut Name: ") + shownName};
    }
    return {kProductName, QLatin1String("A Shortcut was created on your Windows Desktop.") + kLineBreak +
                              kLineBreak + QLatin1String("Shortcut Name: ") + shownName + kLineBreak +
                              QLatin1String("HotKey: ") + hotKey + kLineBreak + kLineBreak +
                              QLatin1String("Double click this shortcut or press ") + hotKey +
                              QLatin1String(" on your keyboard to set or remove this status.") + kLineBreak +
                              kLineBreak + QLatin1String("Bind the key in the desktop's settings to: ") +
                              kClient + u' ' + arguments};
}

bool Shortcuts::CreateDesktopShortcut(const QString& linkPath, const QString& targetPath,
                                      const QString& description, const QString& arguments,
                                      const QString& statusName) {
    const QString entry =
        QLatin1String("[Desktop Entry]\nType=Application\nName=") + entryValue(description) +
        QLatin1String("\nComment=") + entryValue(QLatin1String("Set or remove the status ") + statusName) +
        QLatin1String("\nExec=") + quotedForExec(targetPath) + u' ' + arguments + QLatin1String("\nIcon=") +
        entryValue(m_folders.program()) + QLatin1String("tessel.svg\nTerminal=false\n");
    if (!replaceFile(linkPath, entry.toUtf8())) {
        return false;
    }
    // Desktops start only what may be run, and some only what is marked as trusted, too.
    QFile::setPermissions(linkPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                        QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                        QFile::ExeOther);
    const QString gio = QStandardPaths::findExecutable(QStringLiteral("gio"));
    if (!gio.isEmpty()) {
        m_session.startProgram(gio, {QStringLiteral("set"), linkPath, QStringLiteral("metadata::trusted"),
                                     QStringLiteral("true")});
    }
    return true;
}

} // namespace tessel
