// What a message is written with: the snippets, the text, and a remark on what keeps it from being sent.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace tessel {

class MessageEdit;
class Station;
enum class SendResult;

class MessageFields : public QWidget {
    Q_OBJECT
public:
    // `spoken`: the name of the text for those who cannot see it.
    MessageFields(Station& station, const QString& spoken, QWidget* parent);

    MessageEdit& text() const { return *m_text; } // txtMessage
    // Where the remark shows; the window finds it a place.
    QLabel* remark() const { return m_remark; }
    // The button that sends, whose tip tells the key.
    void setSendButton(QPushButton& button);
    // Why nothing can be sent now; empty for no reason.
    void setObstacle(const QString& text);
    // Whether anything can be written at all.
    void setUsable(bool usable);
    // What a try to send comes to. True when the message is on its way and the window can close.
    bool settle(SendResult result);
    // Empties the text and goes on there.
    void ClearQuickMessage();

signals:
    void sendPressed();
    void escapePressed();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadSnippetDB();
    void takeSendKey();
    void showRemark();

    Station& m_station;
    QComboBox* m_snippets; // cmbSnippit, and in it lstSnippit
    MessageEdit* m_text;
    QLabel* m_remark;
    QPushButton* m_send = nullptr;
    QString m_obstacle;
    bool m_tooLong = false;
};

} // namespace tessel
