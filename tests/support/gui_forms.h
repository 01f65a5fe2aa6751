// What the tests of windows share: a station of a World whose windows are real.
#pragma once

#include "World.h"
#include "controls/list/ReportControl.h"
#include "engine/ports/cWindowRegistry.h"

#include <QAction>
#include <QApplication>
#include <QMap>
#include <QMessageBox>
#include <QTest>

namespace tessel {

// Places of windows, kept in memory.
struct MemoryRegistry : WindowRegistry {
    QMap<QString, QPoint> places;
    QMap<QString, QSize> sizes;

    void SaveFormPos(const QString& form, QPoint position) override { places[form] = position; }
    std::optional<QPoint> GetFormPos(const QString& form) const override {
        return places.contains(form) ? std::optional(places[form]) : std::nullopt;
    }
    void SaveFormSize(const QString& form, QSize size) override { sizes[form] = size; }
    std::optional<QSize> GetFormSize(const QString& form) const override {
        return sizes.contains(form) ? std::optional(sizes[form]) : std::nullopt;
    }
    bool autoStarts = false;
    void SetAutoStart(const QString&, bool on) override { autoStarts = on; }
    bool autoStart() const override { return autoStarts; }
};

// The texts of one item of the rows that a list shows, from the top.
inline QStringList shownTexts(ReportView& list, int section) {
    list.syncNow();
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        texts += list.model()->index(row, section).data().toString();
    }
    return texts;
}

// The one message box that is open; nullptr for none.
inline QMessageBox* openBox() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const box = qobject_cast<QMessageBox*>(window); box != nullptr && box->isVisible()) {
            return box;
        }
    }
    return nullptr;
}

inline void trigger(const QWidget& form, const char* action) {
    auto* const found = form.findChild<QAction*>(QLatin1String(action));
    ASSERT_NE(found, nullptr) << action;
    found->trigger();
}

} // namespace tessel
