// A command on a bar: shows its action as it is now, in the form that the bar has room for.
#pragma once

#include <QAbstractButton>

#include <array>

class QAction;

namespace tessel {

class CommandSet;

class CommandButton : public QAbstractButton {
    Q_OBJECT
public:
    enum class Form {
        Large, // icon of 32 pixels over a caption of one or two lines
        Small, // small icon beside the caption
        Icon,  // the icon alone; without one, the first letters of the caption
        Tab    // caption alone, see setCurrent()
    };
    static constexpr int kForms = 4;
    // Drawn by the button itself, for what bars add to the commands.
    enum class Glyph { None, More, Up, Down };

    CommandButton(const CommandSet& commands, int id, QWidget* parent);
    // For an action of the bar's own.
    CommandButton(QAction* action, Glyph glyph, bool opensMenu, QWidget* parent);

    int id() const { return m_id; } // 0 for the bar's own
    QAction* action() const { return m_action; }
    bool isWanted() const; // nobody has hidden the command
    bool opensMenu() const { return m_opensMenu; }

    Form form() const { return m_form; }
    void setForm(Form form);
    void setGlyph(Glyph glyph);
    // Marks a tab as the one whose page is shown.
    void setCurrent(bool current);
    bool isCurrent() const { return m_current; }

    // What the form takes when nothing needs to be cut.
    QSize sizeOf(Form form) const;
    QSize sizeHint() const override { return sizeOf(m_form); }
    QSize minimumSizeHint() const override { return sizeOf(m_form == Form::Tab ? Form::Tab : Form::Icon); }

    static int smallIconSide(const QFontMetrics& metrics);

signals:
    // It was pressed; its command is triggered next.
    void chosen();
    // It wants another size, or has been hidden or shown.
    void reshaped();
    void doubleClicked();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override {} // the action's owner decides
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void follow();
    QSize measure(Form form) const;
    QStringList captionLines() const;
    QString tip() const;
    bool isCut() const;
    void paintBack(QPainter& painter) const;
    void paintTab(QPainter& painter) const;
    void paintLarge(QPainter& painter, QRect room) const;
    void paintRow(QPainter& painter, QRect room) const;
    void paintIcon(QPainter& painter, const QRect& room) const;
    void paintText(QPainter& painter, const QRect& room, Qt::Alignment alignment, const QString& text) const;
    void paintGlyph(QPainter& painter, const QRect& room, Glyph glyph) const;

    QAction* m_action;
    int m_id = 0;
    bool m_hasIcon = false;
    bool m_opensMenu = false;
    bool m_current = false;
    bool m_wanted = true;
    QString m_caption;
    bool m_wasCurrent = false; // when the mouse was last pressed on it
    Glyph m_glyph = Glyph::None;
    Form m_form = Form::Small;
    mutable std::array<QSize, kForms> m_sizes; // empty ones are not measured yet
};

} // namespace tessel
