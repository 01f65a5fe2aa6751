#include "windows/dialogs/restartBox.h"

#include "engine/core/mod_Definitions.h"

#include <QMessageBox>

namespace tessel {

QMessageBox* openRestartBox(QWidget* parent) {
    auto* const box = new QMessageBox(QMessageBox::Information, kProductName,
                                      QLatin1String("You will need to restart ") + kProductName +
                                          QLatin1String(" to complete this action."),
                                      QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return box;
}

} // namespace tessel
