// One page of options: groups of rows that a search can narrow.
#pragma once

#include "windows/options/OptionTable.h"

#include <QScrollArea>
#include <QStringList>

#include <functional>
#include <vector>

class QFormLayout;
class QGroupBox;
class QVBoxLayout;

namespace tessel {

class OptionPage : public QScrollArea {
    Q_OBJECT
public:
    // Reads and writes through the station's settings.
    explicit OptionPage(Station& station, QWidget* parent = nullptr);

    // The group with this heading, made at the end of the page when there is none.
    QGroupBox* group(const QString& heading);
    // Adds the control of a setting.
    void addOption(const OptionRow& row);
    // Adds something of the page's own, with an optional caption beside it.
    void addRow(const QString& heading, const QString& caption, QWidget* field, const QString& words);
    // Text that explains, over the whole width.
    void addText(const QString& heading, QWidget* text);
    // To be called when all rows are there.
    void finish();

    // Shows the rows that hold all these words, or all rows for none. How many there are.
    int showMatching(const QStringList& words);
    // Shows the present values.
    void readSettings();

private:
    struct Row {
        QFormLayout* form;
        QWidget* field;
        QString words; // in small letters
    };

    QFormLayout* form(const QString& heading);
    QWidget* makeControl(const OptionRow& row);
    void remember(QFormLayout* form, QWidget* field, const QString& words);

    Station& m_station;
    QVBoxLayout* m_layout;
    std::vector<QGroupBox*> m_groups;
    std::vector<Row> m_rows;
    std::vector<std::function<void()>> m_readers;
    bool m_reading = false;
};

} // namespace tessel
