// A grid of colours to choose one from, or none.
#pragma once

#include <QWidget>

#include <vector>

class QButtonGroup;

namespace tessel {

// Works by mouse, arrows and the space bar. Each colour has a name for those who cannot see it.
class ColorTagPicker : public QWidget {
    Q_OBJECT
public:
    // `noneText`: caption of the choice of no colour.
    ColorTagPicker(const std::vector<QColor>& colors, const QString& noneText, QWidget* parent = nullptr);

    // Index into the colours, -1 for none.
    int chosen() const;
    void setChosen(int index);

    bool eventFilter(QObject* button, QEvent* event) override;

signals:
    // The user chose another one.
    void chosenChanged();

private:
    QButtonGroup* m_buttons;
};

} // namespace tessel
