// The window of one received message, with an answer to it.
#pragma once

#include <QDialog>

class QGroupBox;
class QPlainTextEdit;
class QPushButton;

namespace tessel {

class ElidedLabel;
class MessageFields;
class Station;

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
    QGroupBox* m_group; // grpOriginal
    ElidedLabel* m_heading;
    QPlainTextEdit* m_original; // txtOriginal
    MessageFields* m_answer;
    QPushButton* m_reply; // cmdReply
    QPushButton* m_ack;   // cmdAck
};

} // namespace tessel
