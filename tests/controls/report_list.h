// A report list as forms use it: records with four items, shown in a window of a known size.
#pragma once

#include "controls/list/ReportControl.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace tessel {

enum ListItem { kKey, kTag, kName, kNote, kListItems };

inline ReportRecordPtr listRecord(const QString& key, const QString& name, const QString& note = {}) {
    auto record = std::make_shared<ReportRecord>(kListItems);
    record->item(kKey).text = key;
    record->item(kName).text = name;
    record->item(kNote).text = note;
    return record;
}

struct ReportList {
    ReportList() {
        ReportColumn name{QStringLiteral("Name"), 120, kName};
        name.text = true;
        control.setColumns({{QStringLiteral("Key"), 0, kKey, false},
                            {QString(), 32, kTag},
                            name,
                            {QStringLiteral("Note"), 120, kNote, true, true}});
        control.setRecords(&records);
        control.resize(400, 300);
    }

    void fill(int rows) {
        for (int i = 0; i < rows; ++i) {
            records.append(listRecord(QString::number(i), QStringLiteral("Name %1").arg(i)));
        }
        control.syncNow();
    }
    void show() {
        control.show();
        control.activateWindow();
        control.setFocus();
        QApplication::processEvents();
    }

    QString keyAt(int row) const { return control.model()->index(row, 1).data().toString(); }
    QStringList names() const {
        QStringList names;
        for (int row = 0; row < control.model()->rowCount(); ++row) {
            names.append(keyAt(row));
        }
        return names;
    }
    QString current() const {
        const ReportRecordPtr record = control.currentRecord();
        return record ? record->item(kKey).text : QStringLiteral("none");
    }
    // What the user sees as selected, which must be the same.
    QString selected() const {
        const auto rows = control.selectionModel()->selectedRows();
        return rows.size() != 1 ? QStringLiteral("%1 rows").arg(rows.size()) : keyAt(rows.first().row());
    }
    QPoint place(int row) const { return control.visualRect(control.model()->index(row, 1)).center(); }
    int top(int row) const { return control.visualRect(control.model()->index(row, 1)).top(); }
    int height(int row) const { return control.visualRect(control.model()->index(row, 1)).height(); }

    ReportRecords records{kKey};
    ReportControl control;
};

} // namespace tessel
