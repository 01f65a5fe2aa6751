#include "windows/presence/StaffTagButtons.h"

#include "controls/edit/OncePerDoubleClick.h"
#include "engine/core/mod_Definitions.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QToolButton>

namespace tessel {

namespace {
constexpr int kGap = 4;
constexpr int kLeastIcon = 16;
} // namespace

StaffTagButtons::StaffTagButtons(QWidget* parent) : QWidget(parent) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    for (int index = 0; index < kStaffTagCount; ++index) {
        auto* const button = new QToolButton(this);
        const QString tip = QStringLiteral("Status tag %1").arg(index + 1);
        button->setObjectName(QStringLiteral("StaffTag%1").arg(index));
        button->setCheckable(true);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setFocusPolicy(Qt::StrongFocus);
        pressOncePerDoubleClick(*button);
        row->addWidget(button);
        m_buttons.push_back(button);
        connect(button, &QToolButton::clicked, this, [this, index] {
            const int tag = kFirstStaffTag + index;
            setTag(m_tag == tag ? 0 : tag);
            emit tagChosen(m_tag);
        });
    }
    row->addStretch(1);
    LoadStaffTags();
}

void StaffTagButtons::LoadStaffTags() {
    const int side = std::max(kLeastIcon, fontMetrics().height());
    for (int index = 0; index < kStaffTagCount; ++index) {
        QToolButton* const button = m_buttons[static_cast<std::size_t>(index)];
        button->setIconSize(QSize(side, side));
        button->setIcon(m_images.image(kFirstStaffTag + index, palette()));
    }
}

void StaffTagButtons::setTag(int tag) {
    m_tag = tag >= kFirstStaffTag && tag < kFirstStaffTag + kStaffTagCount ? tag : 0;
    for (int index = 0; index < kStaffTagCount; ++index) {
        m_buttons[static_cast<std::size_t>(index)]->setChecked(m_tag == kFirstStaffTag + index);
    }
}

void StaffTagButtons::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if ((event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) &&
        !m_buttons.empty()) {
        LoadStaffTags();
    }
}

} // namespace tessel
