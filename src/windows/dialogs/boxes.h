// The small boxes that tell or ask one thing. Their texts are plain, whatever names stand in them; they
// delete themselves once they are closed, and nothing waits for them.
#pragma once

#include <QMessageBox>

#include <functional>

namespace tessel {

// Opens a box with an OK button. The text can be selected.
QMessageBox* openBox(QWidget* parent, QMessageBox::Icon icon, const QString& caption, const QString& text);

// The word that something comes into force at the program's next start.
QMessageBox* openRestartBox(QWidget* parent);

// Opens a question whose default is No; Escape means the same. `yes` is called after Yes, unless `context`
// is gone by then.
QMessageBox* openQuestion(QWidget* parent, QMessageBox::Icon icon, const QString& caption,
                          const QString& question, QObject* context, std::function<void()> yes);

} // namespace tessel
