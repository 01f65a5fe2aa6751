// What the small windows about a location have in common.
#pragma once

#include "controls/edit/KeyFilterEdit.h"

#include <functional>
#include <initializer_list>

class QDialog;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tessel {

class Images;
class NetworkMC;
struct OwnState;

// fltName: a patient's name, or the grey "Optional Name".
KeyFilterEdit* patientField(QWidget* parent);
// What stands in such a field; empty for the grey text.
QString patientText(const KeyFilterEdit& field);
// fltNote: a location note.
KeyFilterEdit* noteField(const QString& note, QWidget* parent);

QVBoxLayout* dialogLayout(QDialog& dialog);
// A field under its label; "&" in the label marks the field's key.
void addField(QVBoxLayout& layout, const QString& label, QWidget* field);
QPushButton* button(const QString& name, const QString& caption, const QString& tip, QWidget* parent);
// Gives the button that seats or removes a patient its caption and picture.
void showRoomAct(QPushButton& act, const Images& images, bool occupied, const QString& patient);
// A line that is there while nothing can be sent, and says so. `follow` learns at once and at each change
// whether something can.
QLabel* offlineLine(const OwnState& own, const NetworkMC& network, QDialog& dialog,
                    std::function<void(bool canSend)> follow);
// Buttons from the right edge inwards.
QHBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons);

} // namespace tessel
