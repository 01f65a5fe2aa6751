// Hands the function keys and the hidden chord of the main window to the engine.
#pragma once

#include <QObject>

class QLineEdit;

namespace tessel {

class ShortKeys;

class ShortKeyFilter : public QObject {
    Q_OBJECT
public:
    explicit ShortKeyFilter(ShortKeys& keys, QObject* parent) : QObject(parent), m_keys(keys) {}

    // A list: F1 to F9. The search box: these, and the chord.
    void watchList(QObject& list) { list.installEventFilter(this); }
    void watchSearch(QLineEdit& box);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ShortKeys& m_keys;
    const QObject* m_search = nullptr;
};

} // namespace tessel
