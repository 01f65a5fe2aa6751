#include "controls/popup/AlertWidget.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace tessel {

namespace {

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    return className == QLatin1String(AlertWidget::staticMetaObject.className())
               ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::AlertMessage)
               : nullptr;
}

} // namespace

AlertWidget::AlertWidget(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags) {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
}

void AlertWidget::tellAlert() {
    if (QAccessible::isActive()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

} // namespace tessel
