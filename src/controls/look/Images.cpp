#include "controls/look/Images.h"

#include <QBuffer>
#include <QFile>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>
#include <array>

namespace tessel {

namespace {

struct Picture {
    Image number;
    const char* file;
};

constexpr std::array kPictures{
    Picture{Image::Urgent, "urgent.svg"},
    Picture{Image::Status, "status.svg"},
    Picture{Image::Message, "message.svg"},
    Picture{Image::Doorbell, "doorbell.svg"},
    Picture{Image::SeatPatient, "seat_patient.svg"},
    Picture{Image::Phone, "phone.svg"},
    Picture{Image::RemovePatient, "remove_patient.svg"},
    Picture{Image::TagStethoscope, "tag_stethoscope.svg"},
    Picture{Image::TagTooth, "tag_tooth.svg"},
    Picture{Image::TagSyringe, "tag_syringe.svg"},
    Picture{Image::TagScissors, "tag_scissors.svg"},
    Picture{Image::TagPill, "tag_pill.svg"},
    Picture{Image::TagHeart, "tag_heart.svg"},
    Picture{Image::TagClipboard, "tag_clipboard.svg"},
    Picture{Image::TagEye, "tag_eye.svg"},
    Picture{Image::TagBandage, "tag_bandage.svg"},
    Picture{Image::TagStar, "tag_star.svg"},
    Picture{Image::Reply, "reply.svg"},
    Picture{Image::PopupOptions, "options.svg"},
    Picture{Image::ShutDown, "shutdown.svg"},
    Picture{Image::Options, "options.svg"},
    Picture{Image::SetStatus, "set_status.svg"},
    Picture{Image::About, "about.svg"},
    Picture{Image::Notifications, "notifications.svg"},
    Picture{Image::NewMessage, "new_message.svg"},
    Picture{Image::RingDoorbell, "ring_doorbell.svg"},
    Picture{Image::Refresh, "refresh.svg"},
    Picture{Image::OccupiedLocations, "occupied_locations.svg"},
    Picture{Image::Snippets, "snippets.svg"},
    Picture{Image::OnTop, "on_top.svg"},
    Picture{Image::Usage, "usage.svg"},
    Picture{Image::SendDoorbell, "ring_doorbell.svg"},
    Picture{Image::QuickStatus, "status.svg"},
    Picture{Image::QuickOccupied, "occupied.svg"},
    Picture{Image::DoNotDisturb, "do_not_disturb.svg"},
    Picture{Image::Preview, "preview.svg"},
    Picture{Image::LocationNote, "note.svg"},
    Picture{Image::MessageMenu, "new_message.svg"},
    Picture{Image::Home, "home.svg"},
    Picture{Image::StatusView, "status_view.svg"},
    Picture{Image::Favorites, "favorites.svg"},
    Picture{Image::Inbox, "inbox.svg"},
    Picture{Image::RowMessage, "message.svg"},
    Picture{Image::RowDoorbell, "doorbell.svg"},
    Picture{Image::RowPhone, "phone.svg"},
    Picture{Image::RowUrgent, "urgent.svg"},
    Picture{Image::RowClearStatus, "clear_status.svg"},
    Picture{Image::RowNotOccupied, "not_occupied.svg"},
    Picture{Image::RowNote, "note.svg"},
    Picture{Image::RowClearTag, "clear_tag.svg"},
    Picture{Image::MenuClose, "close.svg"},
    Picture{Image::RowAddFavorite, "add_favorite.svg"},
    Picture{Image::RowFavoriteOptions, "favorite_options.svg"},
    Picture{Image::RowSetStatus, "set_status.svg"},
    Picture{Image::RowSnippets, "snippets.svg"},
    Picture{Image::OwnClearStatus, "clear_status.svg"},
    Picture{Image::OwnOccupied, "occupied.svg"},
    Picture{Image::OwnNote, "note.svg"},
    Picture{Image::OwnClearTag, "clear_tag.svg"},
    Picture{Image::OwnAddFavorite, "add_favorite.svg"},
    Picture{Image::OwnRemoveFavorite, "remove_favorite.svg"},
    Picture{Image::OwnSetStatus, "set_status.svg"},
    Picture{Image::OpenMessage, "open_message.svg"},
    Picture{Image::PrintMessage, "print.svg"},
    Picture{Image::DeleteMessage, "delete.svg"},
    Picture{Image::MessagesToTop, "to_top.svg"},
    Picture{Image::ClearMessages, "clear_messages.svg"},
    Picture{Image::Notes, "notes.svg"},
    Picture{Image::LargerFont, "larger_font.svg"},
    Picture{Image::SmallerFont, "smaller_font.svg"},
    Picture{Image::Sort, "sort.svg"},
    Picture{Image::TrayNormal, "tray_normal.svg"},
    Picture{Image::TrayStatus, "tray_status.svg"},
    Picture{Image::TrayDoNotDisturb, "tray_do_not_disturb.svg"},
    Picture{Image::TrayOffline, "tray_offline.svg"},
    Picture{Image::StateFree, "state_free.svg"},
    Picture{Image::StateOccupied, "state_occupied.svg"},
    Picture{Image::StateDoNotDisturb, "state_do_not_disturb.svg"},
    Picture{Image::StateBoth, "state_both.svg"},
    Picture{Image::Search, "search.svg"},
    Picture{Image::BarClose, "close.svg"},
    Picture{Image::BarDoorbell, "bar_doorbell.svg"},
    Picture{Image::BarPhone, "bar_phone.svg"},
    Picture{Image::BarUrgent, "bar_urgent.svg"},
};

// The search relies on the order as well.
constexpr bool risesWithoutDoubles() {
    return std::ranges::adjacent_find(kPictures, [](const Picture& a, const Picture& b) {
               return a.number >= b.number;
           }) == kPictures.end();
}
static_assert(risesWithoutDoubles(), "a number stands twice, or out of its order");

// Two palettes, light and dark, are the rule; a program that makes palettes as it goes must not let
// the icons grow without bound.
constexpr qsizetype kMostIcons = 8 * static_cast<qsizetype>(kPictures.size());

constexpr char kTextToken[] = "currentColor";
constexpr char kAccentToken[] = "#1f6fb2";

struct Inks {
    QColor text;
    QColor accent;
};

// Takes the colour out of a picture that has its own, so that it is not mistaken for one that works.
// The gray is pulled to the middle, where it is seen on light and on dark.
void fade(QImage& image) {
    constexpr double kStays = 0.6;
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(line, line + image.width(), line, [](QRgb dot) {
            // The dots are premultiplied, so the middle gray is half of the opacity.
            const int gray = static_cast<int>(kStays * (2 * qGray(dot) + qAlpha(dot) / 2.0) / 3);
            return qRgba(gray, gray, gray, static_cast<int>(kStays * qAlpha(dot)));
        });
    }
}

// The format is drawn by a plug-in, which is loaded for the first picture: linking the library would
// have every start of the program pay for it.
QImage drawn(const QString& file, int side, const Inks& inks, bool enabled) {
    QFile source(file);
    QByteArray text = source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
    const bool takesInk = text.contains(kTextToken);
    text.replace(kTextToken, inks.text.name().toLatin1());
    text.replace(kAccentToken, inks.accent.name().toLatin1());

    QBuffer bytes(&text);
    QImageReader reader(&bytes, "svg");
    reader.setScaledSize({side, side});
    QImage image = reader.read();
    if (image.isNull()) {
        qWarning("The picture %ls cannot be drawn: %ls", qUtf16Printable(file),
                 qUtf16Printable(reader.errorString()));
        // It is remembered as empty, so that the log tells of it once and not at every painting.
        image = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        return image;
    }
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    if (!enabled && !takesInk) {
        fade(image);
    }
    return image;
}

class InkedPicture : public QIconEngine {
public:
    InkedPicture(QString file, const QPalette& palette)
        : m_file(std::move(file)), m_normal{palette.color(QPalette::Active, QPalette::Text),
                                            palette.color(QPalette::Active, QPalette::Link)},
          m_selected{palette.color(QPalette::Active, QPalette::HighlightedText),
                     palette.color(QPalette::Active, QPalette::HighlightedText)},
          m_disabled{palette.color(QPalette::Disabled, QPalette::Text),
                     palette.color(QPalette::Disabled, QPalette::Text)} {}

    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
        const int side = std::min(size.width(), size.height());
        return {side, side};
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const int side = actualSize(size, mode, state).width();
        if (side <= 0) {
            return {};
        }
        const Inks& inks = mode == QIcon::Disabled   ? m_disabled
                           : mode == QIcon::Selected ? m_selected
                                                     : m_normal;
        const QString key = QStringLiteral("tessel %1 %2 %3 %4 %5")
                                .arg(m_file, inks.text.name(), inks.accent.name())
                                .arg(side)
                                .arg(mode == QIcon::Disabled);
        QPixmap pixmap;
        if (!QPixmapCache::find(key, &pixmap)) {
            pixmap = QPixmap::fromImage(drawn(m_file, side, inks, mode != QIcon::Disabled));
            QPixmapCache::insert(key, pixmap);
        }
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        picture.setDevicePixelRatio(ratio);
        QRectF room({}, picture.deviceIndependentSize());
        room.moveCenter(QRectF(rect).center());
        painter->drawPixmap(room.topLeft(), picture);
    }

    QIconEngine* clone() const override { return new InkedPicture(*this); }

private:
    QString m_file;
    Inks m_normal;
    Inks m_selected;
    Inks m_disabled;
};

} // namespace

Images::Images(QString folder) : m_folder(std::move(folder)) {}

QIcon Images::image(int number, const QPalette& palette) const {
    const QString file = fileName(number);
    if (file.isEmpty()) {
        return {};
    }
    const Key key{number, palette.color(QPalette::Active, QPalette::Text).rgb(),
                  palette.color(QPalette::Active, QPalette::HighlightedText).rgb(),
                  palette.color(QPalette::Disabled, QPalette::Text).rgb(),
                  palette.color(QPalette::Active, QPalette::Link).rgb()};
    const auto known = m_icons.constFind(key);
    if (known != m_icons.constEnd()) {
        return *known;
    }
    if (m_icons.size() >= kMostIcons) {
        m_icons.clear();
    }
    return *m_icons.insert(key, QIcon(new InkedPicture(m_folder + u'/' + file, palette)));
}

QList<int> Images::numbers() {
    QList<int> all;
    for (const Picture& picture : kPictures) {
        all += static_cast<int>(picture.number);
    }
    return all;
}

QString Images::fileName(int number) {
    const auto wanted = static_cast<Image>(number);
    const auto found = std::ranges::lower_bound(kPictures, wanted, {}, &Picture::number);
    return found != kPictures.end() && found->number == wanted ? QLatin1String(found->file) : QString();
}

} // namespace tessel
