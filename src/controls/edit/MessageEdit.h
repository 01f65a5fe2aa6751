// A box of several lines for a text that is sent: it takes certain keys only, and Enter may send.
#pragma once

#include <QPlainTextEdit>

#include <functional>

namespace tessel {

class MessageEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit MessageEdit(QWidget* parent = nullptr);

    // Upper and lower case of each; what else is typed, also by an input method, is dropped. Pasted text
    // comes past this.
    void setAllowedCharacters(const QString& characters) { m_allowed = characters.toCaseFolded(); }
    // Characters of the text, a line end counting as two. What is put in beyond is cut, not what stood
    // there.
    void setMaximumLength(int characters) { m_maximum = characters; }
    // How many characters there is room for.
    int room() const;
    // Ctrl+Enter sends in any case, and Shift+Enter begins a new line.
    void setSendOnEnter(bool on) { m_sendOnEnter = on; }
    // Mends what was put in, so that the box shows what will be sent.
    void setMend(std::function<QString(const QString&)> mend) { m_mend = std::move(mend); }

    // The text with CR LF between its lines.
    QString message() const;
    // A blank and `text` behind what stands there, and the caret behind that.
    void append(const QString& text);

signals:
    void sendPressed();
    void escapePressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    bool allowed(QChar character) const;
    void keepWithin();

    QString m_allowed; // folded
    int m_maximum = 32767;
    bool m_sendOnEnter = false;
    std::function<QString(const QString&)> m_mend;
};

} // namespace tessel
