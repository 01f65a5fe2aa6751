// The pictures of the program by their numbers, in the colours of the window that shows them.
//
// A picture is an SVG file of one family: a grid of 24, rounded strokes of 2. Strokes in
// `currentColor` take the palette's text colour and those in #1f6fb2 its link colour, so that one file
// serves light and dark; every other colour stays as it is drawn.
#pragma once

#include <QHash>
#include <QIcon>
#include <QList>
#include <QPalette>
#include <QString>

namespace tessel {

enum class Image : int {
    // What lists, popups and cards show.
    Urgent = 0,
    Status = 1,
    Message = 9,
    Doorbell = 12,
    SeatPatient = 13,
    Phone = 19,
    RemovePatient = 21,
    TagStethoscope = 30,
    TagTooth = 31,
    TagSyringe = 32,
    TagScissors = 33,
    TagPill = 34,
    TagHeart = 35,
    TagClipboard = 36,
    TagEye = 37,
    TagBandage = 38,
    TagStar = 39,
    Reply = 61,
    PopupOptions = 92,

    // What commands show; the number is the command's own.
    ShutDown = 100,
    Options = 101,
    SetStatus = 102,
    About = 103,
    Notifications = 104,
    NewMessage = 105,
    RingDoorbell = 106,
    Refresh = 107,
    OccupiedLocations = 108,
    Snippets = 109,
    OnTop = 110,
    Usage = 111,
    SendDoorbell = 112,
    QuickStatus = 200,
    QuickOccupied = 205,
    DoNotDisturb = 300,
    Preview = 301,
    LocationNote = 302,
    MessageMenu = 304,
    Home = 350,
    StatusView = 351,
    Favorites = 352,
    Inbox = 353,
    RowMessage = 402,
    RowDoorbell = 404,
    RowPhone = 405,
    RowUrgent = 406,
    RowClearStatus = 407,
    RowNotOccupied = 408,
    RowNote = 409,
    RowClearTag = 410,
    MenuClose = 412,
    RowAddFavorite = 416,
    RowFavoriteOptions = 417,
    RowSetStatus = 418,
    RowSnippets = 419,
    OwnClearStatus = 432,
    OwnOccupied = 433,
    OwnNote = 434,
    OwnClearTag = 435,
    OwnAddFavorite = 436,
    OwnRemoveFavorite = 437,
    OwnSetStatus = 438,
    OpenMessage = 480,
    PrintMessage = 481,
    DeleteMessage = 482,
    MessagesToTop = 483,
    ClearMessages = 484,
    Notes = 706,
    LargerFont = 800,
    SmallerFont = 801,
    Sort = 810,

    TrayNormal = 900,
    TrayStatus = 901,
    TrayDoNotDisturb = 902,
    TrayOffline = 903,

    // Whether one may come in, in the slot of a row.
    StateFree = 920,
    StateOccupied = 921,
    StateDoNotDisturb = 922,
    StateBoth = 923,
    // In a search box.
    Search = 930,

    // What bars show, on a back of any colour.
    BarClose = 32900,
    BarDoorbell = 32901,
    BarPhone = 32902,
    BarUrgent = 32903,
};

class Images {
public:
    // The default is where the program's resources are; whoever links them from a static library has
    // to see to it that they are loaded.
    explicit Images(QString folder = QStringLiteral(":/icons"));

    // A null icon for a number that has no picture. What the icon costs is paid when it is first
    // drawn, and it keeps the colours of the palette it was asked with: ask again when that changes.
    QIcon image(int number, const QPalette& palette) const;
    QIcon image(Image picture, const QPalette& palette) const {
        return image(static_cast<int>(picture), palette);
    }

    static QList<int> numbers();
    // Without the folder; empty for a number that has no picture.
    static QString fileName(int number);

private:
    struct Key {
        int number = 0;
        QRgb text = 0;
        QRgb selectedText = 0;
        QRgb dimmedText = 0;
        QRgb accent = 0;
        bool operator==(const Key&) const = default;
        friend size_t qHash(const Key& key, size_t seed) {
            return qHashMulti(seed, key.number, key.text, key.selectedText, key.dimmedText, key.accent);
        }
    };

    QString m_folder;
    mutable QHash<Key, QIcon> m_icons;
};

} // namespace tessel
