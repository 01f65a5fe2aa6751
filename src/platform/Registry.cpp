#include "platform/Registry.h"

#include "engine/core/cInifile.h"
#include "engine/core/mod_DesktopEntry.h"
#include "engine/core/mod_FileTools.h"

#include <QSettings>
#include <QStandardPaths>

namespace tessel {

namespace {

const QString kApplication = QStringLiteral("TesselStatus");

constexpr char kPosition[] = "Position";
constexpr char kSize[] = "Size";
constexpr char kPoint[] = "@Point";
constexpr char kSizeOf[] = "@Size";

// Where the desktop's own store of settings lies, and in its form. Its writer takes an empty file for a
// good one when the disk is full, so the file is written as the station's own are.
cInifile store(const QString& form, const char* name) {
    cInifile ini;
    ini.Path =
        QSettings(QSettings::NativeFormat, QSettings::UserScope, kApplication, kApplication).fileName();
    ini.Section = form;
    ini.Key = QLatin1String(name);
    return ini;
}

void write(const QString& form, const char* name, const char* type, int first, int second) {
    store(form, name).setValue(QStringLiteral("%1(%2 %3)").arg(QLatin1String(type)).arg(first).arg(second));
}

template <typename Pair> std::optional<Pair> read(const QString& form, const char* name, const char* type) {
    const QString text = store(form, name).Value();
    const QString start = QLatin1String(type) + u'(';
    if (!text.startsWith(start) || !text.endsWith(u')')) {
        return std::nullopt;
    }
    const QStringList numbers = text.sliced(start.size()).chopped(1).split(u' ');
    bool first = false;
    bool second = false;
    const Pair pair(numbers.value(0).toInt(&first), numbers.value(1).toInt(&second));
    return numbers.size() == 2 && first && second ? std::optional(pair) : std::nullopt;
}

QString autoStartFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String("/autostart/") + kApplication + QLatin1String(".desktop");
}

} // namespace

void Registry::SaveFormPos(const QString& form, QPoint position) {
    write(form, kPosition, kPoint, position.x(), position.y());
}

std::optional<QPoint> Registry::GetFormPos(const QString& form) const {
    return read<QPoint>(form, kPosition, kPoint);
}

void Registry::SaveFormSize(const QString& form, QSize size) {
    write(form, kSize, kSizeOf, size.width(), size.height());
}

std::optional<QSize> Registry::GetFormSize(const QString& form) const {
    return read<QSize>(form, kSize, kSizeOf);
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
