#include "platform/Registry.h"

#include "engine/core/mod_DesktopEntry.h"
#include "engine/core/mod_FileTools.h"

#include <QSettings>
#include <QStandardPaths>

namespace tessel {

namespace {

const QString kApplication = QStringLiteral("TesselStatus");

// One short-lived object an access: its end writes the file.
class Store {
public:
    void write(const QString& form, const char* name, const QVariant& value) {
        m_settings.setValue(form + u'/' + QLatin1String(name), value);
    }
    template <typename T> std::optional<T> read(const QString& form, const char* name) const {
        const QVariant value = m_settings.value(form + u'/' + QLatin1String(name));
        return value.canConvert<T>() ? std::optional(value.value<T>()) : std::nullopt;
    }

private:
    QSettings m_settings{QSettings::NativeFormat, QSettings::UserScope, kApplication, kApplication};
};

constexpr char kPosition[] = "Position";
constexpr char kSize[] = "Size";

QString autoStartFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String("/autostart/") + kApplication + QLatin1String(".desktop");
}

} // namespace

void Registry::SaveFormPos(const QString& form, QPoint position) {
    Store().write(form, kPosition, position);
}

std::optional<QPoint> Registry::GetFormPos(const QString& form) const {
    return Store().read<QPoint>(form, kPosition);
}

void Registry::SaveFormSize(const QString& form, QSize size) {
    Store().write(form, kSize, size);
}

std::optional<QSize> Registry::GetFormSize(const QString& form) const {
    return Store().read<QSize>(form, kSize);
}

void Registry::SetAutoStart(const QString& program, bool on) {
    const QString path = autoStartFile();
    if (!on) {
        DeleteFile(path);
        return;
    }
    const QString entry = QLatin1String("[Desktop Entry]\nType=Application\nName=Tessel Status\nExec=") +
                          quotedForExec(program) + QLatin1String("\nTerminal=false\n");
    replaceFile(path, entry.toUtf8());
}

bool Registry::autoStart() const {
    constexpr qint64 kLargestEntry = 65536;
    QByteArray entry;
    return readWholeFile(autoStartFile(), kLargestEntry, entry) && !entry.contains("\nHidden=true") &&
           !entry.contains("\nX-GNOME-Autostart-enabled=false");
}

} // namespace tessel
