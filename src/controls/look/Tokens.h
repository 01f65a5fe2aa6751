// The measures of the look: every number that a painter uses stands here, and docs/look.md tells them
// in one table. Sizes are units: pixels at a font of 10 points, which grow with the letters.
#pragma once

#include <QRgb>

namespace tessel::look {

inline constexpr int kMeantFor = 10; // points

// --- spacing: a grid of 4 and 8 ------------------------------------------------------------------
inline constexpr int kTight = 4;
inline constexpr int kSpace = 8;
inline constexpr int kWide = 16;

// --- lines and corners, in pixels ----------------------------------------------------------------
inline constexpr int kRounding = 3;         // of buttons and cards
inline constexpr int kMark = 3;             // the bar at the current tab, at the side of a message bar
inline constexpr int kCheckBar = 2;         // at the foot of a command that is on
inline constexpr int kFocus = 2;            // the frame of what has the keyboard, of a pressed button
inline constexpr double kStroke = 1.5;      // of signs that are drawn: arrows, funnel, cross
inline constexpr int kMenuArrow = 12;       // of a button that opens a menu, behind its caption
inline constexpr QRgb kAlarm = 0xFFF2A33A;  // the alert bar, a warning
inline constexpr QRgb kDanger = 0xFFC62828; // what went wrong

// --- rows ----------------------------------------------------------------------------------------
inline constexpr int kRow = 32;        // one line
inline constexpr int kStatusLine = 20; // more for the status under the name
inline constexpr int kNoteLine = 16;   // more for the note
inline constexpr int kHeader = 28;
inline constexpr int kSelectionBar = 4;
inline constexpr int kStrip = 8;      // the colour tag, over the full height
inline constexpr int kStateIcon = 20; // occupied, do not disturb, free
inline constexpr int kState = 40;     // bar, strip and state slot together
inline constexpr int kNameShare = 45; // of what name and status share
inline constexpr int kStatusShare = 55;
inline constexpr int kNameMost = 300;
inline constexpr int kStatusMost = 380;
inline constexpr int kStaff = 52;
inline constexpr int kNarrow = 380;      // pixels: below, the status goes under the name
inline constexpr int kLargePoints = 14;  // above, too
inline constexpr double kSmaller = 0.85; // note and age, of the size of the letters
inline constexpr double kLarger = 1.25;  // what a popup is about
inline constexpr double kLeastPoints = 7;

// --- cards ---------------------------------------------------------------------------------------
inline constexpr int kCardLines = 6; // of its text, at most
inline constexpr int kCardRule = 2;  // pixels: over the stamp

// --- empty lists ---------------------------------------------------------------------------------
inline constexpr int kEmptyPicture = 48;
inline constexpr int kEmptyMargin = 24;     // pixels, and no more than
inline constexpr int kEmptyMarginShare = 8; // this part of the width
inline constexpr double kEmptyOpacity = 0.4;

// --- shares of one colour laid on another --------------------------------------------------------
inline constexpr double kSeparator = 0.05; // text on base, between rows
inline constexpr double kHeaderTint = 0.04;
inline constexpr double kQuiet = 0.7;  // the ink of notes and ages, before it is made readable
inline constexpr double kHover = 0.07; // accent on base
inline constexpr double kOwnRow = 0.08;
inline constexpr double kSelected = 0.16;
inline constexpr double kSelectedFocused = 0.28;
inline constexpr double kUnfocused = 0.6; // a mark, without the keyboard; the frame of a hovered button
inline constexpr double kMenuTint = 0.22; // the row of a menu that is chosen
inline constexpr double kHovered = 0.1;   // buttons and tabs
inline constexpr double kChecked = 0.2;
inline constexpr double kPressed = 0.34;
inline constexpr double kAlarmTint = 0.34;
inline constexpr double kSearchTint = 0.25; // of a search box with a colour of its own, in the dark
inline constexpr double kCardRuleInk = 0.4;
inline constexpr double kCardRuleLight = 0.9; // white on the card, under the rule
inline constexpr double kCardRuleLightDark = 0.06;

// --- contrast ------------------------------------------------------------------------------------
inline constexpr double kTextContrast = 4.5;
inline constexpr double kPartContrast = 3.0; // of an outline, a mark, a frame
inline constexpr double kPopupContrast = 7.0;

// --- the window ----------------------------------------------------------------------------------
inline constexpr int kFirstWidth = 440;
inline constexpr int kFirstHeight = 680;
inline constexpr int kOneRowBelow = 700;    // pixels of height: the ribbon has one row of buttons
inline constexpr int kTabsAloneBelow = 400; // the ribbon is its tabs, and the window its list

// Beside the caption of a tab, both sides together; the lesser one where the tabs have no room.
inline constexpr int kTabSpace = 18;
inline constexpr int kTightTabSpace = 6;
inline constexpr const char* kTightTabs = "tightTabs"; // the property of such a row of tabs

// --- popups --------------------------------------------------------------------------------------
inline constexpr int kPopupUnits = 270;                   // the width of every popup, in units of its own
inline constexpr double kPopupUnit = 320.0 / kPopupUnits; // pixels at 10 points
inline constexpr int kPopupMessageHeight = 140;
inline constexpr int kPopupBand = 26;
inline constexpr int kPopupLeast = 100;
inline constexpr int kPopupMost = 230;
inline constexpr int kPopupIconColumn = 44;
inline constexpr int kPopupFade = 12; // behind it the strong end runs out
inline constexpr int kPopupIcon = 28;
inline constexpr int kPopupSign = 16; // the icon in the band of a message
inline constexpr int kPopupPad = 10;
inline constexpr int kPopupTextLeft = 15; // of a message, from either side
inline constexpr int kPopupFrame = 2;     // pixels
inline constexpr int kCorner = 8;         // pixels
inline constexpr int kShadow = 8;         // pixels around
inline constexpr int kShadowFall = 2;     // pixels, so that the light comes from above
inline constexpr double kShadowInk = 0.28;
inline constexpr double kPopupEdge = 0.25;         // black on the strong end, around the popup
inline constexpr double kPopupButtonHovered = 0.1; // ink on the back
inline constexpr double kPopupButtonPressed = 0.16;
inline constexpr int kPopupButtonGap = 2; // pixels
inline constexpr int kPopupLines = 8;     // of the text, at most
inline constexpr int kPopupLabelLines = 2;
inline constexpr int kStackGap = 8; // pixels

// --- motion, in milliseconds ---------------------------------------------------------------------
inline constexpr int kFadeMs = 120;
inline constexpr int kPulseMs = 450;
inline constexpr int kPulses = 2;
inline constexpr double kPulseInk = 0.55; // white, at its height

} // namespace tessel::look
