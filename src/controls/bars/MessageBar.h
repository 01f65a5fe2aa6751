// A line across a view that tells what happened, with one button.
#pragma once

#include "controls/popup/AlertWidget.h"

#include <QIcon>
#include <QString>

#include <array>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tessel {

class ElidedLabel;

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
    // Shows the bar, or hides it when there is nothing to show. Without room for all the text is cut,
    // and the tip tells the whole.
    void setContent(const BarContent& content);
    const BarContent& content() const { return m_content; }

signals:
    void buttonClicked();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString whole() const;
    QColor back() const;
    void showContent();
    void fit();
    void tell();

    enum Part { kTitle, kText, kTime, kName, kParts };

    Accent m_accent;
    BarContent m_content;
    QLabel* m_icon;
    std::array<ElidedLabel*, kParts> m_parts{};
    QPushButton* m_button;
    QHBoxLayout* m_first; // line
    QVBoxLayout* m_lines;
    bool m_told = false;
};

} // namespace tessel
