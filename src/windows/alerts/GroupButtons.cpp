#include "windows/alerts/GroupButtons.h"

#include "controls/bars/CommandBars.h"
#include "controls/list/ReportText.h"
#include "engine/station.h"
#include "windows/alerts/frmGroups.h"

#include <QPushButton>

namespace tessel {

namespace {
// A file written by hand may hold any name; the window must not grow with it.
constexpr int kCaptionChars = 40;
} // namespace

GroupButtons::GroupButtons(Station& station, bool keys, QWidget* parent)
    : QObject(parent), m_station(station), m_parent(parent), m_keys(keys) {
    static_assert(kCount == Groups::kGroupCount);
    for (int slot = 0; slot < kCount; ++slot) {
        auto* const button = new QPushButton(parent);
        button->setObjectName(QStringLiteral("cmdGroup%1").arg(slot + 1));
        button->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(button, &QPushButton::clicked, this, [this, slot] { press(slot); });
        connect(button, &QWidget::customContextMenuRequested, this, [this, slot] { edit(slot); });
        m_buttons[static_cast<std::size_t>(slot)] = button;
    }
    connect(&m_station.groups, &Groups::changed, this, &GroupButtons::LoadGroups);
    LoadGroups();
}

void GroupButtons::LoadGroups() {
    for (int slot = 0; slot < kCount; ++slot) {
        const QString key = m_keys ? QStringLiteral("(F%1) ").arg(slot + 1) : QString();
        button(slot)->setText(plainCaption(singleLine(m_station.groups.caption(slot), kCaptionChars)));
        button(slot)->setToolTip(key + m_station.groups.tip(slot));
    }
    emit loaded();
}

void GroupButtons::press(int slot) {
    if (m_station.groups.at(slot).used) {
        emit chosen(slot);
    } else {
        edit(slot);
        emit loaded(); // it is no group that could stay pressed
    }
}

// Not run in a loop of its own: the program may end while it is open, and takes the window with it.
void GroupButtons::edit(int slot) {
    const bool wasFree = !m_station.groups.at(slot).used;
    auto* const editor =
        new frmGroups(m_station.groups, m_station.endpoints.records(), m_station.own.SID, slot, m_parent);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, [this, slot, wasFree] {
        if (wasFree && m_station.groups.at(slot).used) {
            emit made(slot);
        }
    });
    editor->open();
}

} // namespace tessel
