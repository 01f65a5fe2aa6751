// A search box that shows a prompt while it is not in use.
#pragma once

#include <QLineEdit>

namespace tessel {

// A text equal to the prompt is no search.
class PromptEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit PromptEdit(const QString& prompt, QWidget* parent = nullptr);

    const QString& prompt() const { return m_prompt; }
    // Ends the search, too.
    void setPrompt(const QString& prompt);
    // The back of the box. On a dark desktop a dark shade of it, so that the text stays readable.
    void setBackColor(const QColor& color);
    // The pictures of the box and of the cross that empties it. They cost time to draw: set them when
    // the window stands.
    void setPictures(const QIcon& search, const QIcon& clear);
    // Empties the box and so ends the search.
    void clearSearch();
    // What is searched for; empty for nothing.
    QString searchText() const { return text() == m_prompt ? QString() : text(); }

signals:
    void searchChanged(const QString& text);
    // Enter or the arrow down: the user goes on to the list.
    void leaveForList();
    // The user is about to search, or is no more.
    void entered(bool here);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    QString m_prompt;
    QString m_told; // the search as last told
    QAction* m_glass = nullptr;
    QAction* m_cross = nullptr;
};

} // namespace tessel
