// A line across a view that tells what happened, with one button.
#pragma once

#include "controls/popup/AlertWidget.h"

#include <QIcon>
#include <QString>

class QPushButton;

namespace tessel {

// All texts are plain. Nothing in it: no bar.
struct BarContent {
    QIcon icon;
    QString title;
    QString text;
    QString time;
    QString name;
};

class MessageBar : public AlertWidget {
    Q_OBJECT
public:
    enum class Accent {
        Alert, // somebody is wanted
        Status // for one's information
    };

    explicit MessageBar(Accent accent, QWidget* parent = nullptr);

    void setButton(const QString& caption, const QString& tip);
    // Shows the bar, or hides it when there is nothing to show.
    void setContent(const BarContent& content);
    const BarContent& content() const { return m_content; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void buttonClicked();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QString whole() const;
    QColor back() const;
    QRect textRoom() const;
    void placeButton();
    void tell();

    Accent m_accent;
    BarContent m_content;
    QPushButton* m_button;
    bool m_told = false;
    bool m_cut = false; // as last painted
};

} // namespace tessel
