// The Inbox of the main window: the messages that came, with their bar and their menu.
#pragma once

#include "records/cReportRecords.h"

#include <QWidget>

#include <functional>

class QIcon;

namespace tessel {

class CardControl;
class CommandSet;
class Station;

class MessageView : public QWidget {
    Q_OBJECT
public:
    // `icon`: gives the picture of a number.
    MessageView(Station& station, CommandSet& commands, std::function<QIcon(int)> icon,
                QWidget* parent = nullptr);

    CardControl& list() const { return *m_list; }

private:
    void createList(std::function<QIcon(int)> icon);
    void showMenu(const ReportRecordPtr& record, const QPoint& globalPos);
    void askToRemoveAll();

    Station& m_station;
    CommandSet& m_commands;
    CardControl* m_list; // rptMessages
};

} // namespace tessel
