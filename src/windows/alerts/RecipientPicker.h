// A list of locations of which some are chosen, and below it the button that clears the choice.
#pragma once

#include "controls/list/EmptyState.h"
#include "windows/alerts/RecipientList.h"

#include <QWidget>

class QListWidget;
class QPushButton;

namespace tessel {

class EmptyHint;

class RecipientPicker : public QWidget {
    Q_OBJECT
public:
    // Object names of the list and of the button; what the list shows without a location.
    RecipientPicker(const char* list, const char* clear, const EmptyState& empty, QWidget* parent);

    // Fills the list anew. Who was chosen and is still there stays chosen.
    void load(const ReportRecords& rows, const RecipientColumns& columns, RecipientOrder order,
              const QString& leaveOut);
    bool isEmpty() const;
    QList<Recipient> chosen() const;
    // False when there is no such location.
    bool choose(const QString& SID);
    // Hides what does not hold all words of the text; who is chosen stays chosen.
    void search(const QString& text);
    // Chooses the current location, or does not choose it any more.
    void toggleCurrent();
    QListWidget& list() const { return *m_list; }

signals:
    void chosenChanged();
    // The button was pressed while nobody was chosen.
    void refreshWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showChosen();
    void showHint();
    void chooseShown();

    QListWidget* m_list;
    QPushButton* m_clear;
    EmptyHint* m_hint;
    EmptyState m_empty;
    QString m_search;
};

} // namespace tessel
