#include "windows/dialogs/boxes.h"

#include "engine/core/mod_Definitions.h"

#include <utility>

namespace tessel {

namespace {
QMessageBox* makeBox(QWidget* parent, QMessageBox::Icon icon, const QString& caption, const QString& text,
                     QMessageBox::StandardButtons buttons) {
    auto* const box = new QMessageBox(icon, caption, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return box;
}
} // namespace

QMessageBox* openBox(QWidget* parent, QMessageBox::Icon icon, const QString& caption, const QString& text) {
    QMessageBox* const box = makeBox(parent, icon, caption, text, QMessageBox::Ok);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->open();
    return box;
}

QMessageBox* openRestartBox(QWidget* parent) {
    return openBox(parent, QMessageBox::Information, kProductName,
                   QLatin1String("You will need to restart ") + kProductName +
                       QLatin1String(" to complete this action."));
}

QMessageBox* openQuestion(QWidget* parent, QMessageBox::Icon icon, const QString& caption,
                          const QString& question, QObject* context, std::function<void()> yes) {
    QMessageBox* const box = makeBox(parent, icon, caption, question, QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    QObject::connect(box, &QMessageBox::finished, context, [yes = std::move(yes)](int answer) {
        if (answer == QMessageBox::Yes) {
            yes();
        }
    });
    box->open();
    return box;
}

} // namespace tessel
