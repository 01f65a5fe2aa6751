// The options, the shared status editor and what an administrator locks in them.
#include "windows/options/frmOptions.h"

#include "controls/edit/ColorTagPicker.h"
#include "engine/core/mod_CodePage.h"
#include "support/gui_forms.h"
#include "windows/options/OptionTable.h"
#include "windows/presence/frmStatusButtonEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>

#include <gtest/gtest.h>

#include <random>

using namespace tessel;

namespace {

class Options : public testing::Test {
protected:
    ~Options() override { delete form; }

    void open(const WindowRequest& request = {WindowId::Options}) {
        if (!world[0]->own.online) {
            world.settle();
        }
        delete form;
        form = new frmOptions(*world[0].station);
        form->take(request);
        form->show();
        QApplication::processEvents();
    }
    template <typename T> T& control(const char* name) {
        T* const found = form->findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    QTabWidget& tabs() { return control<QTabWidget>("tbOptions"); }
    void admin(const char* key, const char* value) {
        world[0].set(kAdminFile, QStringLiteral("Admin"), QLatin1String(key), QLatin1String(value));
    }
    QString user(const char* section, const char* key) {
        return world[0].get(kUserFile, QLatin1String(section), QLatin1String(key));
    }
    QString status(const char* key) {
        return world[0].get(kStatusFile, QStringLiteral("status"), QLatin1String(key));
    }
    QStringList sentCodes() {
        QStringList codes;
        for (; m_seen < world.network.sent.size(); ++m_seen) {
            const auto packet = cPacket::parse(world.network.sent[m_seen], false);
            if (packet->text(Field::SID) == world[0]->own.SID) {
                codes += packet->text(Field::Code);
            }
        }
        return codes;
    }

    World world{2};
    QPointer<frmOptions> form;

private:
    std::size_t m_seen = 0;
};

QString storedBy(const OptionRow& row, World& world) {
    const SettingKey& key = std::visit(
        [&](auto member) -> const SettingKey& { return (world[0]->settings.*member).key(); }, row.setting);
    return world[0].get(kUserFile,
                        QString::fromUtf8(key.section.data(), static_cast<int>(key.section.size())),
                        QString::fromUtf8(key.key.data(), static_cast<int>(key.key.size())));
}

} // namespace

// A setting without a control cannot be changed, one with two shows the wrong one.
TEST_F(Options, EachSettingHasOneControlThatWritesIt) {
    // Chosen where they are used, kept for their window, or without a meaning.
    QSet<QByteArray> elsewhere{"User/TAG",       "User/FirstRun",   "Note/ACTIVE",       "NAV/1",
                               "MSGNAV/1",       "Settings/SORTEV", "Settings/SORTSV",   "Settings/SORTFV",
                               "Settings/SNPM0", "Settings/SNPM1",  "Settings/SNPM2",    "Settings/PV",
                               "Settings/OSPV",  "Settings/APN",    "Messages/MSG_BACK", "Recents/DB",
                               "Recents/DBG",    "Recents/PC",      "Recents/ST",        "Recents/STC",
                               "Recents/MSG",    "Recents/LU",      "Recents/STAG",      "Recents/STAGC",
                               "Recents/STF",    "Recents/LUC",     "Recents/LUF",       "Metrics/PAL",
                               "Metrics/CHART",  "Metrics/NETS",    "Metrics/NETR",      "Metrics/NETLR"};
    open();
    QSet<QByteArray> reached;
    for (const OptionRow& row : optionRows()) {
        SCOPED_TRACE(row.control);
        const SettingKey& key =
            std::visit([&](auto member) -> const SettingKey& { return (world[0]->settings.*member).key(); },
                       row.setting);
        const QByteArray name = QByteArray(key.section.data(), static_cast<qsizetype>(key.section.size())) +
                                '/' + QByteArray(key.key.data(), static_cast<qsizetype>(key.key.size()));
        EXPECT_FALSE(reached.contains(name));
        reached.insert(name);
        EXPECT_EQ(form->findChildren<QWidget*>(QLatin1String(row.control)).size(), 1);
        const bool restarts = row.control == std::string_view("chkShowUser");
        switch (row.kind) {
        case OptionKind::Check: {
            auto& box = control<QCheckBox>(row.control);
            const bool before = box.isChecked();
            box.click();
            EXPECT_EQ(storedBy(row, world), before ? "0" : "1");
            if (!restarts) {
                box.click();
                EXPECT_EQ(storedBy(row, world), before ? "1" : "0");
            }
            break;
        }
        case OptionKind::Number:
            for (const int value : {row.most, row.least}) {
                control<QSpinBox>(row.control).setValue(value);
                EXPECT_EQ(storedBy(row, world), QString::number(value));
            }
            break;
        case OptionKind::Percent:
            control<QSlider>(row.control).setValue(row.least);
            EXPECT_EQ(storedBy(row, world), QString::number(row.least));
            break;
        case OptionKind::Text: {
            auto& edit = control<QLineEdit>(row.control);
            edit.setText(QStringLiteral("to:"));
            emit edit.editingFinished();
            EXPECT_EQ(storedBy(row, world), "to:");
            edit.clear();
            emit edit.editingFinished();
            EXPECT_EQ(edit.text(), "to:") << "an empty value would read as the default";
            break;
        }
        case OptionKind::Font:
        case OptionKind::Color:
            break;
        }
    }
    for (const SettingKey& key : settings_table::kKeys) {
        const QByteArray name = QByteArray(key.section.data(), static_cast<qsizetype>(key.section.size())) +
                                '/' + QByteArray(key.key.data(), static_cast<qsizetype>(key.key.size()));
        EXPECT_TRUE(reached.contains(name) || elsewhere.contains(name) || name == "Advanced/FilterColor")
            << name.constData() << " has no control";
        EXPECT_FALSE(reached.contains(name) && elsewhere.contains(name)) << name.constData();
    }
    for (const char* const name :
         {"chkAutomaticallyStart", "cmdSaveUserName", "PusCheckFor", "cmdUpdateOptions",
          "cmdREsetPopupAlertLocations", "GroSoftwareUpdates", "grpSharedStatus"}) {
        EXPECT_EQ(form->findChildren<QWidget*>(QLatin1String(name)).size(), 1) << name;
    }
}

// Opening the window alone, or reading odd values from the file, must write nothing.
TEST_F(Options, OpeningWritesNothing) {
    world[0].set(kUserFile, "Settings", "SNPT", "99999999999");
    world[0].set(kUserFile, "Settings", "ANPTM", "lots");
    world[0].set(kUserFile, "Settings", "MNPFS", "-3");
    world[0].set(kUserFile, "Fonts", "EVF", QString(3000, u'f'));
    world[0].set(kStatusFile, "status", "H1", "5");
    world.settle();
    const QByteArray before = world[0].fileBytes(kUserFile);
    const QByteArray statuses = world[0].fileBytes(kStatusFile);
    open();
    EXPECT_EQ(control<QComboBox>("cmbHK1").currentIndex(), -1) << "a code from afar without a row";
    form->close();
    EXPECT_EQ(world[0].fileBytes(kUserFile), before);
    EXPECT_EQ(world[0].fileBytes(kStatusFile), statuses);
}

// Several settings have a button elsewhere too, and a note may come from afar, while the window is open.
TEST_F(Options, FollowsWhatIsChangedElsewhere) {
    open();
    auto& onTop = control<QCheckBox>("chkOnTop");
    const auto& size = control<QSpinBox>("updListFontSize");
    ASSERT_FALSE(onTop.isChecked() || control<QPushButton>("cmdClearNote").isEnabled());
    world[0]->shell.toggleOnTop();
    world[0]->shell.IncreaseReportFont();
    world[0]->presence.SetLocationNote(QStringLiteral("Back at nine"));
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(form);
    QApplication::processEvents();
    EXPECT_TRUE(onTop.isChecked());
    EXPECT_EQ(size.value(), 11);
    EXPECT_TRUE(control<QPushButton>("cmdClearNote").isEnabled());
    EXPECT_TRUE(world[0]->settings.Settings_ONTOP());
}

TEST_F(Options, ANewNameAndColorReachTheOthersAtOnce) {
    open();
    sentCodes();
    auto& name = control<QLineEdit>("txtUserName");
    name.setText(QStringLiteral("Front Desk"));
    auto& save = control<QPushButton>("cmdSaveUserName");
    ASSERT_TRUE(save.isEnabled());
    save.click();
    form->close();
    delete form; // must not be touched when the second is over
    QApplication::processEvents();
    EXPECT_EQ(sentCodes(), (QStringList{"XD", "XAN"}));
    EXPECT_EQ(user("User", "LOCATION"), "Front Desk");
    world.run(4);
    const ReportRecord* const row = world[1]->endpoints.records().find(world[0]->own.SID);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(item(*row, EndpointItem::Active).text, "Front Desk");

    open();
    sentCodes();
    control<ColorTagPicker>("ColorTag").setChosen(8);
    form->close();
    QApplication::processEvents();
    EXPECT_EQ(user("User", "TAG"), "9");
    EXPECT_EQ(sentCodes(), (QStringList{"XD", "XAN"}));

    world[0]->presence.SetLocationNote(QStringLiteral("Back at nine"));
    open();
    sentCodes();
    control<QPushButton>("cmdClearNote").click();
    EXPECT_EQ(sentCodes(), QStringList{"XAS"});
    EXPECT_EQ(world[0]->own.note, "");
    EXPECT_EQ(user("Note", "ACTIVE"), "");
}

TEST_F(Options, QuickStatusesAreSavedTogetherOrNotAtAll) {
    open({.window = WindowId::Options, .slot = 4});
    EXPECT_EQ(tabs().currentIndex(), 1);
    QApplication::processEvents();
    EXPECT_EQ(form->focusWidget(), form->findChild<QComboBox*>(QStringLiteral("cmbStatus4")));
    QTest::keyClicks(form->focusWidget(), "B");
    EXPECT_FALSE(form->close()) << "one character is no status";
    EXPECT_TRUE(form->isVisible());
    QTest::keyClicks(form->focusWidget(), "At lunch");
    auto& hotKey = control<QComboBox>("cmbHK0");
    control<QComboBox>("cmbStatus0").lineEdit()->setText(QStringLiteral("Busy"));
    control<QLineEdit>("fltQuickName0").setText(QStringLiteral("Desk"));
    hotKey.setCurrentIndex(2);
    emit hotKey.activated(2);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(status("M4") + '|' + status("N4"), "At lunch|At lunch") << "the text is the name as well";
    EXPECT_EQ(status("M0") + '|' + status("N0") + '|' + status("H0"), "Busy|Desk|2");
    EXPECT_EQ(world[0].keys.held.at(0), RecordingHotKeys::Key(kModShift, 112));

    open();
    control<QLineEdit>("fltQuickName0").setText(QStringLiteral("D"));
    control<QPushButton>("cmdSaveStatus").setEnabled(true);
    control<QPushButton>("cmdSaveStatus").click();
    EXPECT_EQ(status("M0") + '|' + status("N0"), "Busy|Busy") << "a name too short must not lose the status";
    control<QPushButton>("cmdClearStatusKey0").click();
    control<QPushButton>("cmdSaveStatus").click();
    EXPECT_EQ(status("M0") + status("N0") + status("H0"), "0");
    EXPECT_TRUE(world[0].keys.held.empty());
}

TEST_F(Options, ASearchFindsAnOptionByItsWords) {
    open();
    auto& box = control<QLineEdit>("txtSearchOptions");
    box.setText(QStringLiteral("privacy"));
    EXPECT_EQ(tabs().currentIndex(), 4);
    EXPECT_TRUE(control<QCheckBox>("chkMsgPrivate").isVisible());
    EXPECT_FALSE(control<QCheckBox>("chkMessageTone").isVisibleTo(form));
    box.setText(QStringLiteral("popup  DOORBELL"));
    EXPECT_TRUE(control<QCheckBox>("chkNotify_DoorBell").isVisible());
    for (const auto& [words, button] : {std::pair{"my favorites", "cmdFavorites"},
                                        {"data folder", "cmdDataFolder"},
                                        {"save name", "cmdSaveUserName"}}) {
        box.setText(QLatin1String(words));
        EXPECT_TRUE(control<QPushButton>(button).isVisible()) << "what stands on a button: " << words;
    }
    box.setText(QStringLiteral("no such option"));
    EXPECT_FALSE(tabs().isVisible());
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible()) << "the first Escape ends the search";
    EXPECT_TRUE(tabs().isVisible());
    for (int page = 0; page < kOptionsPages; ++page) {
        EXPECT_TRUE(tabs().isTabVisible(page)) << page;
    }
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

// One file, and all that it can lock is locked.
TEST_F(Options, AllTwelveLocksHold) {
    for (const char* const key : {"NetworkSettings", "AdvancedSettings", "UserChange", "Updates", "HotKeys",
                                  "UserName", "Support", "SSAdmin", "SSHide", "WTS", "ENC"}) {
        admin(key, "r");
    }
    admin("KA", "0");
    world[0].set(kStatusFile, "status", "H0", "1");
    world[0].set(kSharedFile, "SharedStatus", "0", "Lunch:|:1");
    world[0].facts.IsRemoteSession = false;
    open();
    EXPECT_FALSE(tabs().isTabEnabled(6)) << "NetworkSettings";
    EXPECT_FALSE(tabs().isTabEnabled(7)) << "AdvancedSettings";
    control<QLineEdit>("txtSearchOptions").setText(QStringLiteral("scramble"));
    EXPECT_NE(tabs().currentIndex(), 7) << "a search is no way around";
    control<QLineEdit>("txtSearchOptions").clear();
    EXPECT_FALSE(control<QPushButton>("cmdSaveUserName").isVisibleTo(form)) << "UserChange";
    EXPECT_TRUE(control<QLineEdit>("txtUserName").isReadOnly());
    EXPECT_FALSE(control<QGroupBox>("GroSoftwareUpdates").isVisibleTo(form)) << "Updates";
    EXPECT_FALSE(control<QGroupBox>("grpSharedStatus").isVisibleTo(form)) << "SSHide";
    for (const char* const box : {"cmbHK0", "cmbHK1", "cmbHK2"}) {
        EXPECT_FALSE(control<QComboBox>(box).isEnabled()) << "HotKeys";
    }
    EXPECT_TRUE(world[0].keys.held.empty()) << "HotKeys";
    EXPECT_EQ(world[0]->own.location, world[0]->own.host) << "UserName";
    EXPECT_FALSE(world[0]->settings.ENCODE()) << "ENC";
    EXPECT_FALSE(world[0]->admin.KA);
    EXPECT_EQ(world[0]->admin.GetAdminFlags(), "RRFalseRRRRRRRRR");
    world[0]->profile.SaveUserName(QStringLiteral("Other"));
    EXPECT_NE(user("User", "LOCATION"), "Other");

    frmStatusButtonEditor editor(world[0]->own, world[0]->admin, world[0]->network, world[0]->tones,
                                 world[0]->sharedStatus);
    editor.show();
    for (const char* const name :
         {"cmdSave", "cmdSaveQuit", "cmdCancel", "cmdDelete", "cmdPush", "cmdRemoveAll"}) {
        EXPECT_FALSE(editor.findChild<QPushButton*>(QLatin1String(name))->isEnabled()) << name;
    }
    auto* const author = editor.findChild<QListWidget*>();
    EXPECT_EQ(author->item(author->count() - 1)->text(), "Admin Restricted");
    EXPECT_EQ(editor.findChild<QLineEdit*>(QStringLiteral("txtStatusMessage0"))->text(), "Lunch");
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_FALSE(editor.isVisible()) << "there is a way out";

    // Remote sessions with a lock on WTS share one folder.
    world[0].facts.IsRemoteSession = true;
    EXPECT_TRUE(Admin::restricted(world[0]->admin.WTS));
}

TEST_F(Options, TheSharedListIsEditedAndSentAfterAQuestion) {
    open();
    frmStatusButtonEditor editor(world[0]->own, world[0]->admin, world[0]->network, world[0]->tones,
                                 world[0]->sharedStatus);
    editor.show();
    const auto press = [&](const char* name) {
        editor.findChild<QPushButton*>(QLatin1String(name))->click();
    };
    EXPECT_FALSE(editor.findChild<QPushButton*>(QStringLiteral("cmdPush"))->isEnabled());
    EXPECT_FALSE(editor.findChild<QPushButton*>(QStringLiteral("cmdDelete"))->isEnabled());
    editor.findChild<QLineEdit*>(QStringLiteral("txtStatusMessage3"))->setText(QStringLiteral("x"));
    press("cmdSaveQuit");
    EXPECT_TRUE(editor.isVisible());
    editor.findChild<QLineEdit*>(QStringLiteral("txtStatusMessage3"))->setText(QStringLiteral("Lunch"));
    press("cmdPush");
    ASSERT_NE(openBox(), nullptr);
    EXPECT_EQ(openBox()->windowTitle(), "Send");
    EXPECT_TRUE(
        openBox()->text().startsWith("Send these Shared Status settings to all online locations?\n\nNote: "));
    openBox()->button(QMessageBox::Yes)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    world.run(2);
    EXPECT_EQ(world[1].get(kSharedFile, "SharedStatus", "3"), "Lunch:|:0");
    press("cmdRemoveAll");
    ASSERT_NE(openBox(), nullptr);
    openBox()->button(QMessageBox::No)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    world.run(2);
    EXPECT_TRUE(world[1]->sharedStatus.fileThere());
}

// Clicks and keys as of a cat on the keyboard: whatever they do, the program lives and its files read.
TEST_F(Options, ARandomUserBreaksNothing) {
    std::mt19937 random(20260312);
    open();
    constexpr int kSteps = 1000;
    constexpr Qt::Key kKeys[] = {Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Down,
                                 Qt::Key_Up,     Qt::Key_Left,    Qt::Key_Right, Qt::Key_PageDown,
                                 Qt::Key_Delete, Qt::Key_A,       Qt::Key_7,     Qt::Key_Escape};
    for (int step = 0; step < kSteps; ++step) {
        if (form == nullptr || !form->isVisible()) {
            open({.window = WindowId::Options, .page = static_cast<int>(random() % kOptionsPages)});
        }
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            // Whatever asks is answered, so that one question does not end the walk.
            if (window->isModal() && window->isVisible() && window != form) {
                window->close();
            }
        }
        const QList<QWidget*> all = form->findChildren<QWidget*>();
        QWidget* const target = all[static_cast<qsizetype>(random() % static_cast<unsigned>(all.size()))];
        if (!target->isVisible() || target->objectName() == u"cmdDataFolder") {
            continue;
        }
        if (random() % 3 == 0) {
            QTest::mouseClick(target, Qt::LeftButton);
        } else {
            QTest::keyClick(target, kKeys[random() % std::size(kKeys)]);
        }
        if (QWidget* const popup = QApplication::activePopupWidget(); popup != nullptr) {
            popup->close();
        }
        if (step % 100 == 0) {
            world.clock.advance(200);
            QApplication::processEvents();
        }
    }
    delete form;
    QApplication::processEvents();
    world.run(10);
    for (const QString& name : {kUserFile, kStatusFile}) {
        const QString text = toText(world[0].fileBytes(name));
        EXPECT_FALSE(text.contains(QChar(0)));
        for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
            EXPECT_TRUE(line.trimmed().isEmpty() || line.startsWith(u'[') || line.contains(u'='))
                << qPrintable(line);
        }
    }
    EXPECT_EQ(user("User", "SID"), world[0]->own.SID);
    world[0]->settings.LoadSettings(false);
}
