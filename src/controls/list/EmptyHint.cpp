#include "controls/list/EmptyHint.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QPainter>

namespace tessel {

EmptyHint::EmptyHint(QAbstractItemView* view, const EmptyState& state) : QWidget(view->viewport()) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view->viewport()->installEventFilter(this);
    takeLook();
    setState(state);
}

void EmptyHint::setState(const EmptyState& state) {
    m_state = state;
    setAccessibleName((state.text + u' ' + state.hint).trimmed());
    setGeometry(parentWidget()->rect());
    setVisible(!state.text.isEmpty());
    update();
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(watched, event);
}

void EmptyHint::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintEmptyState(painter, m_state, rect(), m_kit);
}

void EmptyHint::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        takeLook();
    }
}

void EmptyHint::takeLook() {
    m_kit.setFont(font());
    m_kit.setPalette(palette());
    m_kit.setIconProvider([this](int number) { return m_images.image(number, palette()); });
    update();
}

} // namespace tessel
