// A plain text of unknown origin and length, broken into a few lines of a given width.
#pragma once

#include <QFont>
#include <QPoint>
#include <QStaticText>
#include <QString>

#include <vector>

class QPainter;

namespace tessel {

class WrappedText {
public:
    // At most `mostLines` lines; what does not fit is cut and ends in an ellipsis. Words break where
    // they are wider than a line.
    WrappedText(const QString& text, const QFont& font, int width, int mostLines);

    int lineCount() const { return static_cast<int>(m_lines.size()); }
    int lineHeight() const { return m_lineHeight; }
    int height() const { return lineCount() * m_lineHeight; }
    int widest() const { return m_widest; }
    // Not all of the text is to be seen.
    bool isCut() const { return m_cut; }

    // The first `mostLines` of them, in the painter's pen.
    void paint(QPainter& painter, QPoint topLeft, int mostLines) const;

private:
    struct Line {
        QStaticText text;
        double x = 0;
    };
    void add(const QString& text, Qt::LayoutDirection direction, int width);

    QFont m_font;
    int m_lineHeight;
    int m_widest = 0;
    bool m_cut = false;
    std::vector<Line> m_lines;
};

} // namespace tessel
