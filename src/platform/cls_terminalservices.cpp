#include "platform/cls_terminalservices.h"

#include <QFile>

namespace tessel {

cls_terminalservices::cls_terminalservices() {
    const QString id = qEnvironmentVariable("XDG_SESSION_ID");
    if (id.isEmpty() || id.contains(u'/')) {
        return;
    }
    constexpr qint64 kLongestRecord = 16384;
    QFile file(QLatin1String("/run/systemd/sessions/") + id);
    if (file.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = file.read(kLongestRecord).split('\n');
        for (const QByteArray& line : lines) {
            const qsizetype equals = line.indexOf('=');
            if (equals > 0) {
                m_record.insert(QString::fromUtf8(line.first(equals)),
                                QString::fromUtf8(line.sliced(equals + 1)));
            }
        }
    }
}

bool cls_terminalservices::IsRemoteSession() const {
    const QString type = m_record.value(QStringLiteral("TYPE"));
    const bool remoteDesktop =
        m_record.value(QStringLiteral("REMOTE")) == u"1" && (type == u"x11" || type == u"wayland");
    return qEnvironmentVariableIsSet("XRDP_SESSION") || remoteDesktop ||
           m_record.value(QStringLiteral("SERVICE")).startsWith(QLatin1String("xrdp"));
}

QString cls_terminalservices::ClientLoginName(const QString& fallback) const {
    return m_record.value(QStringLiteral("USER"), fallback);
}

} // namespace tessel
