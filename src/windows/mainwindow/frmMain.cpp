#include "windows/mainwindow/frmMain.h"

#include "controls/bars/CommandBar.h"
#include "controls/bars/CommandBars.h"
#include "controls/bars/CommandMenu.h"
#include "controls/bars/MessageBar.h"
#include "controls/bars/PaneBar.h"
#include "controls/bars/Ribbon.h"
#include "controls/edit/PromptEdit.h"
#include "controls/list/ReportColors.h"
#include "controls/list/ReportControl.h"
#include "controls/look/ScreenPlacement.h"
#include "controls/look/Tokens.h"
#include "engine/ports/cWindowRegistry.h"
#include "engine/ports/cWindows.h"
#include "engine/station.h"
#include "windows/WindowPlaces.h"
#include "windows/clsOnTop.h"
#include "windows/mainwindow/ShortKeyFilter.h"
#include "windows/mainwindow/ViewStack.h"
#include "windows/mainwindow/frmTray.h"
#include "windows/mainwindow/mod_Toolbars.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tessel {

namespace {
const QString kFormName = QStringLiteral("frmMain");
constexpr QSize kFirstSize(look::kFirstWidth, look::kFirstHeight);
constexpr QSize kLeastSize(300, 320);
// The words that a click on the header of the state slot searches for.
constexpr std::array kStates{"free", "occupied", "do not disturb"};
constexpr int kCountMs = 100; // between a change of a list and its count in the caption of its tab
} // namespace

frmMain::frmMain(Station& station, WindowRegistry& registry) : m_station(station), m_registry(registry) {
    setWindowTitle(kProductName);
    setMinimumSize(kLeastSize);
    m_station.loadMain();
    Set_onTop();
    createCommands();
    // In the order in which Tab goes through them.
    createBars();
    m_search = new PromptEdit(QLatin1String(kViews.front().prompt), this);
    m_stack = new ViewStack(
        m_station, *m_commands, [this](int number) { return m_images.image(number, palette()); }, this);
    createSearch();
    m_panes = new PaneBar(*m_commands, CreateStatusBar_NoteBoard(), this);
    createShortcuts();
    createQuietMark();
    layOut();
    LoadFormPosition();
    connectStation();
    m_station.shell.SetTabView(m_station.shell.storedView());
    m_station.shell.CountLocationsTabs();
    refreshCommands(Touches::All);
    ResetSearchFilter();
    showFooter();
    showAlertBar();
    CreateMessagebar();
}

frmMain::~frmMain() = default;

void frmMain::createCommands() {
    m_commands = new CommandSet(LoadCommands(m_station.commands), this);
    m_commands->setIconProvider([this](int number) { return m_images.image(number, palette()); });
    connect(m_commands, &CommandSet::triggered, this, &frmMain::execute);
    createMenus();
}

void frmMain::createBars() {
    m_ribbon = new Ribbon(*m_commands, CreateRibbon(), this);
    m_quickBar = new CommandBar(*m_commands, CreateQuickBar(), tr("Quick commands"), this);
    m_alertBar = new MessageBar(MessageBar::Accent::Alert, this);
    m_alertBar->setObjectName(QStringLiteral("AlertBar"));
    m_alertBar->setButton(QStringLiteral("Close"), tr("Close the alert"));
    m_ownBar = new MessageBar(MessageBar::Accent::Status, this);
    m_ownBar->setObjectName(QStringLiteral("MyStatusBar"));
    m_ownBar->setButton(QStringLiteral("Turn Off"), QStringLiteral("Turn Off Status Message"));
    connect(m_alertBar, &MessageBar::buttonClicked, &m_station.alertBar, &AlertBar::TurnOff_AlertBar);
    connect(m_ownBar, &MessageBar::buttonClicked, &m_station.status, &LocalStatus::TurnOffStatus);
}

void frmMain::createSearch() {
    m_search->setObjectName(QStringLiteral("txtSearch"));
    m_search->setAccessibleName(tr("Search"));
    connect(m_search, &PromptEdit::searchChanged, this, &frmMain::search);
    connect(m_search, &PromptEdit::entered, m_stack, &ViewStack::prepareSearch);
    connect(m_search, &PromptEdit::leaveForList, this, [this] { m_stack->current().setFocus(); });
}

void frmMain::createShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        auto* const shortcut = new QShortcut(keys, this);
        shortcut->setAutoRepeat(false); // a key that is held would announce this station again and again
        connect(shortcut, &QShortcut::activated, this, act);
    };
    add(Qt::Key_F10, [this] { m_ribbon->takeFocus(); });
    add(QKeySequence::Find, [this] { m_search->setFocus(Qt::ShortcutFocusReason); });
    for (const CommandRow& command : commandTable()) {
        if (*command.keys != '\0') {
            add(QKeySequence(QLatin1String(command.keys)),
                [this, number = command.number()] { execute(number); });
        }
    }
}

void frmMain::layOut() {
    auto* const centre = new QWidget(this);
    auto* const outer = new QVBoxLayout(centre);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    auto* const middle = new QVBoxLayout;
    m_middle = middle;
    middle->addWidget(m_ownBar);
    middle->addWidget(m_search);
    middle->addWidget(m_stack, 1);
    middle->addWidget(m_alertBar);
    outer->addWidget(m_ribbon);
    outer->addWidget(m_quickBar);
    outer->addLayout(middle, 1);
    outer->addWidget(m_panes);
    setCentralWidget(centre);
    foldByHeight();
}

void frmMain::connectStation() {
    auto* const keys = new ShortKeyFilter(m_station.shortKeys, this);
    keys->watchSearch(*m_search);
    for (const View view : {View::Home, View::Status, View::Favorites, View::Inbox}) {
        keys->watchList(m_stack->list(view));
    }
    Shell& shell = m_station.shell;
    connect(&shell, &Shell::ClearSearchBox, m_search, &PromptEdit::clearSearch);
    connect(&shell, &Shell::viewChanged, this, &frmMain::showView);
    connect(&shell, &Shell::previewModeChanged, m_stack, &ViewStack::applyPreview);
    connect(&shell, &Shell::reportFontChanged, m_stack, &ViewStack::applyFont);
    connect(&shell, &Shell::sortChanged, m_stack, &ViewStack::Arrange);
    connect(&shell, &Shell::onTopChanged, this, &frmMain::Set_onTop);
    // A storm of packets is counted once.
    m_counts.setSingleShot(true);
    m_counts.setInterval(kCountMs);
    connect(&m_counts, &QTimer::timeout, this, [this] {
        m_station.shell.CountLocationsTabs();
        refreshCommands(Touches::Messages);
    });
    for (const ReportRecords* list :
         {&m_station.views.rptEndpoints, &m_station.views.rptFavorites, &m_station.inbox.rptMessages}) {
        connect(list, &ReportRecords::changed, this, [this] {
            if (!m_counts.isActive()) {
                m_counts.start();
            }
        });
    }
    connect(&m_station.status, &LocalStatus::changed, this, &frmMain::CreateMessagebar);
    connect(&m_station.alertBar, &AlertBar::changed, this, &frmMain::showAlertBar);
    connect(&m_station.footer, &Footer::changed, this, &frmMain::showFooter);
    connect(m_stack, &ViewStack::menuRequested, this, &frmMain::showRowMenu);
    connect(new QShortcut(Qt::Key_Escape, m_stack, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, &frmMain::leaveList);
    connect(m_stack, &ViewStack::stateMenuRequested, this, &frmMain::showStateMenu);
    refreshOn(shell, &Shell::viewChanged, Touches::View);
    refreshOn(shell, &Shell::tabsCounted, Touches::Counts);
    refreshOn(shell, &Shell::previewModeChanged, Touches::Preview);
    refreshOn(shell, &Shell::reportFontChanged, Touches::Font);
    refreshOn(shell, &Shell::sortChanged, Touches::Sort);
    refreshOn(shell, &Shell::onTopChanged, Touches::OnTop);
    refreshOn(shell, &Shell::offersChanged, Touches::Offers);
    refreshOn(m_station.status, &LocalStatus::changed, Touches::OwnStatus);
    refreshOn(m_station.status, &LocalStatus::doNotDisturbChanged, Touches::DND);
    refreshOn(m_station.status, &LocalStatus::quickStatusesLoaded, Touches::QuickNames);
    refreshOn(m_station.presence, &OwnPresence::changed, Touches::Room);
    refreshOn(m_station.network, &NetworkMC::canSendChanged, Touches::Online);
    refreshOn(m_station.favorites, &Favorites::changed, Touches::FavoriteSlots);
    refreshOn(m_station.groups, &Groups::changed, Touches::Groups);
    refreshOn(*m_stack, &ViewStack::currentRowChanged, Touches::Row);
    refreshOn(m_station.inbox, &Inbox::focusChanged, Touches::Messages);
    refreshOn(m_station.inbox, &Inbox::ensureVisibleChanged, Touches::Messages);
}

template <typename Sender, typename Signal>
void frmMain::refreshOn(const Sender& sender, Signal signal, unsigned touched) {
    connect(&sender, signal, this, [this, touched] { refreshCommands(touched); });
}

void frmMain::createTray() {
    m_tray =
        std::make_unique<Tray>(m_station, [this](int number) { return m_images.image(number, palette()); });
    connect(m_tray.get(), &Tray::showRequested, this, [this] { putInFront(*this); });
    connect(m_tray.get(), &Tray::clicked, this, [this] { putInFront(*this); });
    connect(m_tray.get(), &Tray::resetRequested, this, &frmMain::resetPlace);
    connect(m_tray.get(), &Tray::exitRequested, this,
            [this] { execute(static_cast<int>(Command::ShutDown)); });
}

void frmMain::execute(int number) {
    m_station.commands.Execute(number, m_stack->currentRow());
}

void frmMain::refreshCommands(unsigned touched) {
    refresh(*m_commands, m_station.commands, touched, m_stack->currentRow());
}

void frmMain::showView() {
    const ViewRow& view = m_station.shell.viewRow();
    m_ribbon->setCurrentTab(static_cast<int>(view.view));
    m_search->setPrompt(QLatin1String(view.prompt));
    m_stack->showCurrent();
}

void frmMain::search(const QString& text) {
    if (text.isEmpty()) {
        ResetSearchFilter();
    } else {
        m_search->setBackColor(QColor(QRgb(m_station.settings.Advanced_FilterColor())));
    }
    m_stack->current().setFilterText(text);
    m_stack->setStateFiltered(
        std::ranges::any_of(kStates, [&text](const char* state) { return text == QLatin1String(state); }));
}

void frmMain::showStateMenu(QPoint globalPos) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* const group = new QActionGroup(menu);
    const auto add = [&](const QString& caption, const QString& word) {
        QAction* const action = menu->addAction(caption);
        action->setCheckable(true);
        action->setChecked(m_search->searchText() == word);
        group->addAction(action);
        connect(action, &QAction::triggered, m_search, [this, word] { m_search->setText(word); });
    };
    add(tr("All locations"), {});
    for (const char* const state : kStates) {
        const QString word = QLatin1String(state);
        add(word.at(0).toUpper() + word.mid(1), word);
    }
    menu->popup(globalPos);
}

void frmMain::foldByHeight() {
    const bool low = height() < look::kTabsAloneBelow;
    m_ribbon->setRows(low                             ? Ribbon::Rows::None
                      : height() < look::kOneRowBelow ? Ribbon::Rows::One
                                                      : Ribbon::Rows::Three);
    m_quickBar->setVisible(!low);
    m_stack->setHeadersShown(!low);
    const int gap = low ? look::kTight : look::kSpace;
    m_middle->setContentsMargins(gap, gap, gap, gap);
    m_middle->setSpacing(gap);
}

void frmMain::createQuietMark() {
    m_quietMark = new QToolButton(m_panes);
    m_quietMark->setObjectName(QStringLiteral("DoNotDisturbMark"));
    m_quietMark->setAutoRaise(true);
    m_quietMark->setFocusPolicy(Qt::TabFocus);
    m_quietMark->setText(tr("Do Not Disturb"));
    m_quietMark->setToolTip(tr("No popup shows here. Click to be disturbed again."));
    connect(m_quietMark, &QToolButton::clicked, this, [this] { execute(static_cast<int>(Command::DND)); });
    connect(&m_station.status, &LocalStatus::doNotDisturbChanged, this, &frmMain::showQuietMark);
    m_panes->addMark(m_quietMark);
    showQuietMark();
}

void frmMain::showQuietMark() {
    const bool on = m_station.own.doNotDisturb;
    if (on) {
        constexpr QRgb kQuiet = 0xFFC62828;
        const QColor window = palette().color(QPalette::Window);
        QPalette loud;
        loud.setColor(QPalette::ButtonText,
                      readableOn(QColor(kQuiet), window, palette().color(QPalette::WindowText)));
        m_quietMark->setPalette(loud);
        m_quietMark->setIcon(m_images.image(Image::StateDoNotDisturb, palette()));
        m_quietMark->setToolButtonStyle(width() < look::kNarrow ? Qt::ToolButtonIconOnly
                                                                : Qt::ToolButtonTextBesideIcon);
    }
    m_quietMark->setVisible(on);
}

void frmMain::leaveList() {
    if (m_station.alertBar.AlertBarShown()) {
        m_station.alertBar.TurnOff_AlertBar();
    } else {
        m_search->clearSearch();
    }
}

void frmMain::setSearchPictures() {
    m_search->setPictures(m_images.image(Image::Search, palette()),
                          m_images.image(Image::MenuClose, palette()));
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    foldByHeight();
    showQuietMark();
}

void frmMain::ResetSearchFilter() {
    m_search->setBackColor(QColor(QRgb(m_station.settings.Advanced_FilterColorIdle())));
}

void frmMain::showRowMenu(const ReportRecordPtr& record, const QPoint& globalPos) {
    refreshCommands(Touches::All); // settings, too, have a say in what it offers
    auto* const menu = new CommandMenu(*m_commands, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setEntries(rowMenu(m_station.commands, *record));
    connect(menu, &CommandMenu::triggered, this, [this, record](int id, const QString& text) {
        // The list may have moved on: the command is for the row that the menu was opened on.
        m_station.commands.Execute(id, record.get(), text);
    });
    menu->popup(globalPos);
}

// Menus of buttons. Their pictures are drawn when they are first looked at.
void frmMain::createMenus() {
    const auto add = [this](Command command, const std::function<std::vector<MenuEntry>()>& entries) {
        auto* const menu = new CommandMenu(*m_commands, this);
        connect(menu, &QMenu::aboutToShow, menu, [menu, entries] { menu->setEntries(entries()); });
        connect(menu, &CommandMenu::triggered, this, &frmMain::execute);
        m_commands->setMenu(static_cast<int>(command), menu);
    };
    add(Command::SortOptions, CreateSortMenu);
    add(Command::MessageMenu, [this] { return CreateMessageMiniBar(m_station.commands.groups()); });
}

void frmMain::showFooter() {
    m_panes->setFooter(m_station.footer.text(), m_station.footer.tip());
}

void frmMain::showAlertBar() {
    BarContent alert;
    if (m_station.alertBar.AlertBarShown()) {
        const AlertBar::Content& content = m_station.alertBar.content();
        alert = {m_images.image(content.iconId, palette()), content.title, content.text, content.time,
                 content.name};
        QApplication::alert(this); // the desktop marks the window, which stays where it is
    }
    m_alertBar->setContent(alert);
}

void frmMain::CreateMessagebar() {
    BarContent own;
    if (!m_station.status.messageBar().isEmpty()) {
        own = {{}, QStringLiteral("My Status:"), m_station.status.messageBar(), {}, {}};
    }
    m_ownBar->setContent(own);
}

void frmMain::Set_onTop() {
    tessel::Set_onTop(*this, m_station.settings.Settings_ONTOP());
}

void frmMain::putAway() {
    if (m_tray && m_tray->isThere()) {
        hide();
    } else {
        showMinimized();
    }
}

void frmMain::showNote(const QString& title, const QString& text) {
    if (!m_tray || !m_tray->Set_TrayPopup(title, text)) {
        m_station.footer.SetFooter(text.simplified(), {}, true);
    }
}

bool frmMain::shake(QPoint offset) {
    if (isMinimized() || !isVisible() || isMaximized()) {
        return false;
    }
    const QPoint rest = m_rest.value_or(pos());
    move(rest + offset);
    m_rest = offset.isNull() ? std::nullopt : std::optional(rest);
    return true;
}

void frmMain::LoadFormPosition() {
    const QSize size = m_registry.GetFormSize(kFormName).value_or(kFirstSize).expandedTo(kLeastSize);
    const auto position = m_registry.GetFormPos(kFormName);
    const QList<QRect> screens = freeScreenAreas(m_station.settings.Advanced_MultipleMonitors());
    const QRect place = placedOnScreens(position, size, screens);
    resize(place.size());
    move(place.topLeft());
    if (position && !isOnScreens(*position, screens)) {
        m_lent = place.topLeft();
    }
}

void frmMain::resetPlace() {
    const QRect place = placedOnScreens(std::nullopt, kFirstSize, freeScreenAreas());
    showNormal();
    resize(place.size());
    move(place.topLeft());
    m_lent.reset();
    SaveFormPosition();
    fitOnScreenSoon(*this, m_lent);
}

void frmMain::SaveFormPosition() {
    // What is stored is the place of the window as it is when neither maximised nor minimised.
    const bool usual = (windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) == 0;
    const QPoint frame = geometry().topLeft() - pos();
    const QPoint place = usual ? m_rest.value_or(pos()) : normalGeometry().topLeft() - frame;
    if (place != m_lent) {
        m_registry.SaveFormPos(kFormName, place);
    }
    m_registry.SaveFormSize(kFormName, usual ? size() : normalGeometry().size());
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!m_loaded) {
        m_loaded = true;
        fitOnScreenSoon(*this, m_lent);
        // The window is painted before the last steps read and write files.
        QTimer::singleShot(0, this, [this] {
            m_station.mainLoaded();
            createTray();
            setSearchPictures();
        });
    }
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_commands != nullptr) {
        m_commands->LoadIcons();
        showQuietMark();
        if (m_loaded) {
            setSearchPictures();
        }
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    const CloseReason reason = m_station.own.exiting ? CloseReason::Code : CloseReason::User;
    if (m_station.closing(reason) == CloseAction::Minimise) {
        putAway();
        event->ignore();
        return;
    }
    event->accept();
}

} // namespace tessel
