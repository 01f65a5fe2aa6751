#include "windows/presence/PresenceFields.h"

#include "controls/look/Images.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/presence/mod_LocationActions.h"
#include "engine/presence/mod_OwnPresence.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kLeastLetters = 36; // that a field has room for
const QString kOptionalName = QStringLiteral("Optional Name");

KeyFilterEdit* field(const char* name, const QString& spoken, int longest, QWidget* parent) {
    auto* const edit = new KeyFilterEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setAccessibleName(spoken);
    edit->setAllowedCharacters(kTypedCharacters);
    edit->setMaximumLength(longest);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * kLeastLetters);
    return edit;
}

} // namespace

KeyFilterEdit* patientField(QWidget* parent) {
    KeyFilterEdit* const edit =
        field("fltName", QObject::tr("Patient's name"), OwnPresence::kLongestPatient, parent);
    edit->setPlaceholderText(kOptionalName);
    return edit;
}

QString patientText(const KeyFilterEdit& field) {
    const QString text = field.text().trimmed();
    return text == kOptionalName ? QString() : text;
}

KeyFilterEdit* noteField(const QString& note, QWidget* parent) {
    KeyFilterEdit* const edit =
        field("fltNote", QObject::tr("Location note"), OwnPresence::kLongestNote, parent);
    edit->setPlaceholderText(QObject::tr("At least %1 characters").arg(OwnPresence::kShortestNote));
    edit->setText(note);
    edit->selectAll();
    return edit;
}

QVBoxLayout* dialogLayout(QDialog& dialog) {
    auto* const layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    return layout;
}

void addField(QVBoxLayout& layout, const QString& label, QWidget* field) {
    auto* const caption = new QLabel(label, field->parentWidget());
    caption->setBuddy(field);
    layout.addWidget(caption);
    layout.addWidget(field);
}

QPushButton* button(const QString& name, const QString& caption, const QString& tip, QWidget* parent) {
    auto* const made = new QPushButton(caption, parent);
    made->setObjectName(name);
    made->setToolTip(tip);
    made->setAutoDefault(false);
    return made;
}

void showRoomAct(QPushButton& act, const Images& images, bool occupied, const QString& patient) {
    act.setText(RoomCaption(occupied, patient).replace(u'&', QLatin1String("&&")));
    act.setIcon(images.image(RoomPicture(occupied), act.palette()));
}

QLabel* offlineLine(const OwnState& own, const NetworkMC& network, QDialog& dialog,
                    std::function<void(bool canSend)> follow) {
    auto* const line = new QLabel(QObject::tr("Offline: nothing can be sent now"), &dialog);
    line->setObjectName(QStringLiteral("lblOffline"));
    const auto show = [&own, line, follow = std::move(follow)] {
        line->setVisible(!own.canSend());
        follow(own.canSend());
    };
    QObject::connect(&network, &NetworkMC::canSendChanged, line, show);
    show();
    return line;
}

QHBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(kGrid);
    row->addStretch(1);
    for (QPushButton* const one : buttons) {
        row->addWidget(one);
    }
    return row;
}

} // namespace tessel
