// The window of one received message, with an answer to it.
#pragma once

#include <QDialog>

class QComboBox;
class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tessel {

class MessageEdit;
class Station;
enum class SendResult;

class frmReply : public QDialog {
    Q_OBJECT
public:
    explicit frmReply(Station& station, QWidget* parent = nullptr);

private:
    void LoadMessage();
    void showCanReply();
    void CreateMessage(const QString& text);
    void acknowledge();

    Station& m_station;
    QGroupBox* m_group;         // grpOriginal
    QPlainTextEdit* m_original; // txtOriginal
    MessageEdit* m_text;        // txtMessage
    QComboBox* m_snippets;      // cmbSnippit
    QPushButton* m_reply;
    QPushButton* m_ack;
    QLabel* m_note;
};

} // namespace tessel
