// Tabs at the left side with captions that read from left to right.
#pragma once

#include <QTabBar>
#include <QTabWidget>

namespace tessel {

class SideTabBar : public QTabBar {
    Q_OBJECT
public:
    explicit SideTabBar(QWidget* parent = nullptr);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent* event) override;
};

class SideTabs : public QTabWidget {
    Q_OBJECT
public:
    explicit SideTabs(QWidget* parent = nullptr);
};

} // namespace tessel
