// What the painters of all lists need: icons, readable colours, texts that are shaped once.
#pragma once

#include "controls/list/WrappedText.h"

#include <QBrush>
#include <QCache>
#include <QColor>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QStaticText>

#include <functional>

class QPainter;

namespace tessel {

using ReportIconProvider = std::function<QIcon(int icon)>;

// How a row stands among the others at the moment.
struct RowState {
    bool selected = false;
    bool focused = false; // the list has the keyboard
    bool hovered = false;
    bool own = false; // it tells of oneself
};

class PaintKit {
public:
    PaintKit();

    // The font of the rows; `small` below means the smaller one beside it.
    void setFont(const QFont& font);
    void setPalette(const QPalette& palette);
    void setIconProvider(ReportIconProvider provider);

    enum class Face { Plain, Small, Bold, Strong }; // Strong: weight 600
    const QFont& font(Face face) const;
    int lineHeight(Face face) const;
    int iconSize() const;
    // So many units in pixels: they grow with the letters.
    int px(int units) const;
    const QPalette& palette() const { return m_palette; }

    // The colour, or one like it that can be read on `back`.
    QColor ink(const QColor& text, const QColor& back);
    // The same for a line or an outline, which needs less contrast.
    QColor outline(const QColor& color, const QColor& back) const;
    // The back of a row that stands on `base` otherwise.
    QColor rowBack(const QColor& base, const RowState& state) const;
    // A box with round corners and a line of one pixel around it.
    static void paintBox(QPainter& painter, const QRectF& box, double corner, const QColor& line,
                         const QBrush& back);
    void paintSelectionBar(QPainter& painter, const QRect& row, const RowState& state) const;

    void paintIcon(QPainter& painter, int icon, const QRect& room);
    // One line, cut with an ellipsis where the room ends. Gives back the width that it took.
    int paintLine(QPainter& painter, const QString& text, const QRect& room, Qt::Alignment alignment,
                  Face face);
    // A few characters whose digits stand under each other whatever the font: never cut. `room` is what
    // they end in; gives back the width that they took.
    int paintDigits(QPainter& painter, QStringView text, const QRect& room, Qt::Alignment alignment);
    int digitsWidth(QStringView text) const;
    // The text in several lines of plain face, laid out once.
    const WrappedText& wrapped(const QString& text, int width, int mostLines);

private:
    struct Line {
        QStaticText text;
        double width = 0;
    };
    struct LineKey {
        QString text;
        int width = 0;
        Face face = Face::Plain;
        bool operator==(const LineKey&) const = default;
        friend size_t qHash(const LineKey& key, size_t seed) {
            return qHashMulti(seed, key.text, key.width, static_cast<int>(key.face));
        }
    };

    const Line& lineFor(const QString& text, int width, Face face);

    // Measured when it is first asked for: each face costs a file of letters, and some lists are never
    // looked at.
    struct Sized {
        QFont font;
        mutable int height = 0;
    };
    struct Digits {
        int widest = 0;
        bool even = true; // all of them are as wide
    };
    const Sized& sized(Face face) const;
    const Digits& digits() const; // of the small face
    Sized m_plain;
    Sized m_small;
    Sized m_bold;
    Sized m_strong;
    mutable double m_scale = 0;
    QPalette m_palette;
    ReportIconProvider m_icons;

    QCache<LineKey, Line> m_lines;
    QCache<std::pair<QString, int>, WrappedText> m_wrapped;
    QHash<std::pair<int, int>, QPixmap> m_pictures; // by number and side
    double m_pictureRatio = 0;
    QHash<quint64, QColor> m_inks; // by text and background
    mutable Digits m_digits;
};

} // namespace tessel
