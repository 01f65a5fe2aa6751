#include "windows/options/OptionPage.h"

#include "controls/look/TabOrder.h"
#include "engine/station.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFontComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kPercentOf = 255;
constexpr int kSliderWidth = 160;

QString hint(const OptionRow& row) {
    return QObject::tr(row.tip);
}

// A wheel that turns the page must not turn a number on its way.
class WheelGuard : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
            event->ignore();
            return true;
        }
        return false;
    }
};

QIcon swatch(const QColor& color, const QPalette& palette) {
    QPixmap picture(32, 16);
    picture.fill(color);
    QPainter painter(&picture);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    return QIcon(picture);
}

// A text setting that holds a number, or a number setting, as one thing.
class NumberSetting {
public:
    NumberSetting(Settings& settings, const SettingMember& member) : m_settings(settings), m_member(member) {}

    int value() const {
        if (const auto* const number = std::get_if<Setting<std::int32_t> Settings::*>(&m_member)) {
            return (m_settings.*(*number))();
        }
        return (m_settings.*std::get<Setting<QString> Settings::*>(m_member))().toInt();
    }
    void set(int value) {
        if (const auto* const number = std::get_if<Setting<std::int32_t> Settings::*>(&m_member)) {
            (m_settings.*(*number)).set(value);
        } else {
            (m_settings.*std::get<Setting<QString> Settings::*>(m_member)).set(QString::number(value));
        }
    }

private:
    Settings& m_settings;
    const SettingMember& m_member;
};

} // namespace

OptionPage::OptionPage(Station& station, QWidget* parent)
    : QScrollArea(parent), m_station(station), m_layout(nullptr) {
    auto* const inside = new QWidget(this);
    m_layout = new QVBoxLayout(inside);
    m_layout->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    m_layout->setSpacing(2 * kGrid);
    setWidget(inside);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

QGroupBox* OptionPage::group(const QString& heading) {
    for (QGroupBox* const box : m_groups) {
        if (box->title() == heading) {
            return box;
        }
    }
    auto* const box = new QGroupBox(heading, widget());
    auto* const rows = new QFormLayout(box);
    rows->setContentsMargins(2 * kGrid, kGrid, 2 * kGrid, 2 * kGrid);
    rows->setHorizontalSpacing(2 * kGrid);
    rows->setVerticalSpacing(kGrid);
    rows->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    rows->setRowWrapPolicy(QFormLayout::WrapLongRows); // in large letters
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    rows->setFormAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_layout->addWidget(box);
    m_groups.push_back(box);
    return box;
}

QFormLayout* OptionPage::form(const QString& heading) {
    return static_cast<QFormLayout*>(group(heading)->layout());
}

void OptionPage::remember(QFormLayout* form, QWidget* field, const QString& words) {
    QString found = words + u' ' + static_cast<QGroupBox*>(form->parentWidget())->title();
    // What stands on a button is what a user looks for.
    QList<QPushButton*> buttons = field->findChildren<QPushButton*>();
    if (auto* const itself = qobject_cast<QPushButton*>(field); itself != nullptr) {
        buttons.append(itself);
    }
    for (const QPushButton* const button : buttons) {
        found += u' ' + button->text().remove(u'&') + u' ' + button->toolTip();
    }
    m_rows.push_back({form, field, found.toLower()});
}

void OptionPage::addRow(const QString& heading, const QString& caption, QWidget* field,
                        const QString& words) {
    QFormLayout* const rows = form(heading);
    if (caption.isEmpty() && qobject_cast<QPushButton*>(field) != nullptr) {
        // As wide as its caption, not as the page.
        auto* const line = new QWidget(group(heading));
        auto* const layout = new QHBoxLayout(line);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(field);
        layout->addStretch(1);
        rows->addRow(line);
        field = line;
    } else if (caption.isEmpty()) {
        rows->addRow(field);
    } else {
        auto* const label = new QLabel(caption, group(heading));
        label->setBuddy(field);
        rows->addRow(label, field);
    }
    remember(rows, field, QString(caption).remove(u'&') + u' ' + words);
}

void OptionPage::addText(const QString& heading, QWidget* text) {
    form(heading)->addRow(text);
}

void OptionPage::finish() {
    m_layout->addStretch(1);
    auto* const guard = new WheelGuard(this);
    for (QWidget* const field : widget()->findChildren<QWidget*>()) {
        if (qobject_cast<QAbstractSpinBox*>(field) != nullptr || qobject_cast<QComboBox*>(field) != nullptr ||
            qobject_cast<QSlider*>(field) != nullptr) {
            field->setFocusPolicy(Qt::StrongFocus);
            field->installEventFilter(guard);
        }
    }
    tabAsLaidOut(*widget());
    readSettings();
}

void OptionPage::addOption(const OptionRow& row) {
    QWidget* const control = makeControl(row);
    control->setObjectName(QLatin1String(row.control));
    control->setToolTip(hint(row));
    QString caption = tr(row.caption);
    if (row.nextStart) {
        caption += tr(" (takes effect at the next start)");
    }
    const QString words = caption + u' ' + hint(row) + u' ' + QLatin1String(row.words);
    if (auto* const box = qobject_cast<QCheckBox*>(control)) {
        box->setText(caption);
        addRow(QLatin1String(row.group), {}, box, words);
    } else {
        control->setAccessibleName(caption);
        addRow(QLatin1String(row.group), caption + u':', control, words);
    }
}

QWidget* OptionPage::makeControl(const OptionRow& row) {
    Settings& settings = m_station.settings;
    const auto applied = [this, &row] {
        if (row.applied != nullptr) {
            row.applied(m_station);
        }
    };
    switch (row.kind) {
    case OptionKind::Check: {
        auto* const box = new QCheckBox(widget());
        Setting<bool>& setting = settings.*std::get<Setting<bool> Settings::*>(row.setting);
        m_readers.emplace_back([box, &setting] { box->setChecked(setting()); });
        connect(box, &QCheckBox::toggled, this, [this, &setting, applied](bool on) {
            if (!m_reading && setting() != on) {
                setting.set(on);
                applied();
            }
        });
        return box;
    }
    case OptionKind::Number: {
        auto* const spin = new QSpinBox(widget());
        spin->setRange(row.least, row.most);
        spin->setSuffix(tr(row.unit));
        spin->setKeyboardTracking(false); // a half typed number is none
        NumberSetting setting(settings, row.setting);
        m_readers.emplace_back([spin, setting] { spin->setValue(setting.value()); });
        connect(spin, &QSpinBox::valueChanged, this, [this, setting, applied](int value) mutable {
            if (!m_reading && setting.value() != value) {
                setting.set(value);
                applied();
            }
        });
        return spin;
    }
    case OptionKind::Percent: {
        auto* const slider = new QSlider(Qt::Horizontal, widget());
        slider->setRange(row.least, row.most);
        slider->setPageStep((row.most - row.least) / 8);
        slider->setMinimumWidth(kSliderWidth);
        slider->setTracking(false);
        NumberSetting setting(settings, row.setting);
        m_readers.emplace_back([slider, setting] { slider->setValue(setting.value()); });
        connect(slider, &QSlider::valueChanged, this, [this, slider, setting, &row](int value) mutable {
            slider->setToolTip(hint(row) + QStringLiteral(" (%1 %)").arg(value * 100 / kPercentOf));
            if (!m_reading && setting.value() != value) {
                setting.set(value);
            }
        });
        return slider;
    }
    case OptionKind::Text: {
        auto* const edit = new QLineEdit(widget());
        edit->setMaxLength(row.most);
        Setting<QString>& setting = settings.*std::get<Setting<QString> Settings::*>(row.setting);
        m_readers.emplace_back([edit, &setting] { edit->setText(setting()); });
        connect(edit, &QLineEdit::editingFinished, this, [edit, &setting, applied] {
            // An empty value reads as the one that holds without it.
            if (setting() != edit->text() && !edit->text().trimmed().isEmpty()) {
                setting.set(edit->text());
                applied();
            }
            edit->setText(setting());
        });
        return edit;
    }
    case OptionKind::Font: {
        auto* const fonts = new QFontComboBox(widget());
        fonts->setEditable(false);
        Setting<QString>& setting = settings.*std::get<Setting<QString> Settings::*>(row.setting);
        m_readers.emplace_back([fonts, &setting] { fonts->setCurrentFont(QFont(setting())); });
        connect(fonts, &QFontComboBox::currentFontChanged, this,
                [this, &setting, applied](const QFont& font) {
                    if (!m_reading && setting() != font.family()) {
                        setting.set(font.family());
                        applied();
                    }
                });
        return fonts;
    }
    case OptionKind::Color: {
        auto* const button = new QPushButton(tr("Choose…"), widget());
        button->setAutoDefault(false);
        Setting<Argb>& setting = settings.*std::get<Setting<Argb> Settings::*>(row.setting);
        m_readers.emplace_back(
            [this, button, &setting] { button->setIcon(swatch(QColor(QRgb(setting())), palette())); });
        connect(button, &QPushButton::clicked, this, [this, &setting, applied, &row] {
            auto* const dialog = new QColorDialog(QColor(QRgb(setting())), this);
            dialog->setAttribute(Qt::WA_DeleteOnClose);
            dialog->setOption(QColorDialog::DontUseNativeDialog);
            dialog->setWindowTitle(tr(row.caption));
            connect(dialog, &QColorDialog::colorSelected, this,
                    [this, &setting, applied](const QColor& color) {
                        setting.set(color.rgb());
                        applied();
                        readSettings();
                    });
            dialog->open();
        });
        return button;
    }
    }
    return nullptr;
}

void OptionPage::readSettings() {
    m_reading = true;
    for (const auto& read : m_readers) {
        read();
    }
    m_reading = false;
}

int OptionPage::showMatching(const QStringList& words) {
    int shown = 0;
    std::vector<QFormLayout*> used;
    for (const Row& row : m_rows) {
        const bool matches = std::all_of(words.begin(), words.end(),
                                         [&row](const QString& word) { return row.words.contains(word); });
        row.form->setRowVisible(row.field, matches);
        if (matches) {
            ++shown;
            used.push_back(row.form);
        }
    }
    for (QGroupBox* const box : m_groups) {
        const bool empty = std::find(used.begin(), used.end(), box->layout()) == used.end();
        box->setVisible(!(empty && !words.isEmpty()) && !box->property("restricted").toBool());
    }
    return shown;
}

} // namespace tessel
