// The window of a message that this location sent, with its recipients.
#pragma once

#include "windows/FormWindows.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;

namespace tessel {

class EmptyHint;
class NotificationHistory;

class frmSentMessage : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    explicit frmSentMessage(const NotificationHistory& history, QWidget* parent = nullptr);

    void take(const WindowRequest& request) override;

private:
    void OpenMessage();

    const NotificationHistory& m_history;
    QLineEdit* m_to;        // txtTo
    QPlainTextEdit* m_text; // txtNote
    QListWidget* m_users;   // lstUsers
    EmptyHint* m_hint;
    QLabel* m_stamp;
};

} // namespace tessel
