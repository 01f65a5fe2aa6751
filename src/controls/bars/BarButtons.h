// What the buttons of all bars have in common beyond Qt's own: together they are one stop of the Tab
// key with the arrows inside, and a caption that is cut or not shown stands in the tip.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <vector>

class QKeyEvent;
class QToolButton;
class QWidget;

namespace tessel {

class CommandSet;

class BarButtons : public QObject {
    Q_OBJECT
public:
    // `bar` is what the buttons lie in, at any depth. It takes the focus and hands it on.
    BarButtons(CommandSet& commands, QWidget* bar);

    // A button with an action of the set, or with none. Its focus policy is the bar's business then.
    void adopt(QToolButton* button);
    // Gives the keyboard to the button that had it last, or to the first.
    void enter();
    // Gives it back to what had it before the bar, as Escape does. False when that is gone.
    bool goBack();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // From left to right and down in each column, or from the right where one reads so.
    std::vector<QToolButton*> reachable() const;
    void focusMoved(QWidget* old, QWidget* now);
    bool pressKey(QToolButton& from, const QKeyEvent& key);
    void step(const QToolButton& from, int by);
    void leave(bool forward);
    bool isSecondClick(const QToolButton& button);
    void showTip(const QToolButton& button, QPoint globalPos) const;

    CommandSet& m_commands;
    QWidget* m_bar;
    QPointer<QToolButton> m_last; // had the keyboard last
    QPointer<QWidget> m_back;     // had it before the bar
    QPointer<const QToolButton> m_clicked;
    QElapsedTimer m_sinceClick;
};

} // namespace tessel
