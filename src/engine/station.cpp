#include "engine/station.h"

#include "engine/core/mod_DamagedFiles.h"
#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_FitText.h"
#include "engine/ports/cPopupDisplay.h"
#include "engine/ports/cSession.h"
#include "engine/ports/cWindows.h"

namespace tessel {

// An engine a line, so that several hands can add theirs at once.
// clang-format off
Station::Station(const SystemFacts& facts, const Ports& ports, std::uint64_t seed)
    : windows(ports.windows),
      session(ports.session),
      m_facts(facts),
      m_clock(ports.clock),
      m_link(ports.link),
      m_popupDisplay(ports.popups),
      folders(m_facts),
      data(ini, folders),
      log(m_clock, folders, own),
      settings(data),
      record(own, m_facts, data, m_clock),
      identity(own, data, log, m_clock, seed),
      protocol(own, settings, m_link),
      network(own, data, log, m_clock, m_link, protocol),
      usage(data, settings, m_clock, log, protocol),
      hearing(own, log, m_clock, m_link, protocol, network),
      endpoints(own, settings, admin, log, m_clock, protocol, network),
      favorites(data, log),
      views(own, settings, m_clock, favorites),
      sharedStatus(own, data, folders, m_clock, protocol, identity),
      status(own, data, m_clock, protocol, windows, ports.popups, sharedStatus),
      presence(own, data, m_clock, protocol, windows),
      actions({own, protocol, windows, views, status, presence, favorites}),
      rooms(own, settings, m_clock, views, roomTimes),
      hotKeys(admin, status, log, ports.hotKeys),
      shortcuts(folders, session),
      profile({own, m_facts, data, settings, admin, session, protocol, network}),
      shortKeys(status, windows, m_clock),
      tones(own, settings, folders, ini, ports.sounds),
      popups(own, settings, data, m_clock, ports.popups),
      notices(own, settings, favorites, popups, tones),
      alertBar(settings, m_clock),
      history(settings, folders, log, m_clock, views),
      groups(ini, folders),
      snippets(folders),
      alerts(settings, m_clock, protocol, network, popups, alertBar, tones, history, windows, ports.popups),
      messages(own, settings, log, m_clock, protocol),
      inbox(settings, folders, log, m_clock, popups),
      messageNotices(settings, inbox, history, popups, tones),
      compose(own, settings, m_clock, protocol, endpoints, identity, history, tones),
      reply(own, views, compose, inbox),
      footer(own, m_clock),
      shell(settings, views, inbox, m_clock),
      updates(own, folders, admin, m_clock, session),
      metrics(own, settings, folders, m_clock, history),
      diagnostics({own, m_facts, settings, admin, network, protocol, tones, endpoints, log, m_clock}),
      messageTest(own, folders, m_clock, compose),
      commands({own, settings, admin, windows, shell, network, status, presence, alerts, actions, favorites, groups, snippets, inbox, updates, tmrExit}),
      remoteCommands({own, windows, session, network, endpoints, status, presence, alerts,
          [this] { ExitProc(); }, [this] { tmrExit.setEnabled(true); }}),
      tmrExit(m_clock, "tmrExit", 300, Timer::Kind::OneShot, [this] { ExitProc(); }) {
    // clang-format on
    wire();
    attachOrders();
}

// Who hears of what, and in which order: a connection made earlier is served earlier.
void Station::wire() {
    protocol.addTable(endpoints.records());
    protocol.addTable(views.rptEndpoints);
    connect(&m_link, &Link::dataIn, this,
            [this](QByteArrayView datagram, quint32 source) { protocol.receive(datagram, source); });

    connect(&network, &NetworkMC::footer, &footer, &Footer::SetFooter);
    ini.written = [this](const QString& path, bool stored) { saver.note(path, stored); };
    connect(&history, &NotificationHistory::saved, &saver, &cSaver::note);
    connect(&inbox, &Inbox::saved, &saver, &cSaver::note);
    connect(&snippets, &Snippets::saved, &saver, &cSaver::note);
    connect(&saver, &cSaver::tryAgain, this, [this] { ini.tryAgain(); });
    connect(&saver, &cSaver::tryAgain, &snippets, &Snippets::tryAgain);
    connect(&saver, &cSaver::notice, this,
            [this](const QString& text) { m_popupDisplay.Set_TrayPopup(kProductName, text); });
    connect(&saver, &cSaver::footer, &footer, &Footer::SetFooter);
    connect(&network, &NetworkMC::remark, &footer, &Footer::Remark);
    connect(&network, &NetworkMC::startingNetwork, &shell, &Shell::ClearLocationsTabsCount);
    connect(&network, &NetworkMC::resetUserLists, &endpoints, &Endpoints::ResetUserLists);
    connect(&network, &NetworkMC::keepAliveSent, this, [this] { usage.SaveNetworkUsage(false); });
    connect(&network, &NetworkMC::keepAliveSent, &endpoints, &Endpoints::keepAliveSent);
    connect(&network, &NetworkMC::keepAliveSent, &hearing, &Hearing::tick);
    connect(&hearing, &Hearing::footer, &footer,
            [this](const QString& text, const QString& tip) { footer.SetFooter(text, tip, false); });
    connect(&hearing, &Hearing::footerOver, &footer, &Footer::EndText);
    connect(&hearing, &Hearing::duplicateIdentity, &footer, [this] {
        // It stays until the network restarts, which a new SID needs.
        footer.SetFooter(
            QStringLiteral("Another computer uses this location's identity"),
            QStringLiteral("One of the two needs a new SID: Active Connections, Tools, Reset SID"), false);
    });
    connect(&endpoints, &Endpoints::added, &hearing,
            [this](const EndpointAdded& endpoint) { hearing.locationAdded(endpoint.SID); });

    connect(&network, &NetworkMC::canSendChanged, &rooms, &RoomStatus::networkChanged);
    // Lists follow the rooms' times, which are heard before anybody else acts on a packet.
    protocol.listen([this](const cPacket& packet, Code, quint32) { roomTimes.hear(packet); });
    connect(&endpoints, &Endpoints::removed, this,
            [this](const QStringList& SIDs) { roomTimes.forget(SIDs); });
    connect(&endpoints, &Endpoints::listsCleared, this, [this] { roomTimes.clear(); });
    connect(&favorites, &Favorites::full, this,
            [this] { footer.SetFooter(QStringLiteral("Favorites are full"), {}, true); });
    connect(&endpoints, &Endpoints::added, &views, &LocationViews::Add_to_Active);
    connect(&endpoints, &Endpoints::removed, &views, &LocationViews::Active_RemoveEndpoint);
    connect(&endpoints, &Endpoints::listsCleared, &views, &LocationViews::clear);
    connect(&endpoints, &Endpoints::statusChanged, &views, &LocationViews::ProcessStatusUpdate);
    connect(&endpoints, &Endpoints::statusChanged, &views, &LocationViews::ProcessStatusUpdateFav);
    connect(&endpoints, &Endpoints::locationChanged, &views, &LocationViews::ProcessLocationUpdate);
    connect(&endpoints, &Endpoints::staffTagChanged, &views, &LocationViews::ProcessStaffUpdate);
    connect(&endpoints, &Endpoints::noteChanged, &views, &LocationViews::ProcessLocationNoteUpdate);
    connect(&endpoints, &Endpoints::statusTimeRefreshed, &views, &LocationViews::ProcessStatusTime);
    connect(&endpoints, &Endpoints::historyEntry, &history,
            [this](const HistoryEntry& entry) { history.AddItem(entry); });

    connect(&favorites, &Favorites::added, &views,
            [this](const QString& SID, int slot) { views.Add_to_Favorites(SID, slot); });
    connect(&favorites, &Favorites::removing, &views, &LocationViews::Active_RemoveFavorite);

    connect(&views, &LocationViews::statusSet, this,
            [this](const StatusNews& news) { notices.statusSet(news); });
    connect(&views, &LocationViews::statusCleared, this,
            [this](const QString& SID) { notices.statusCleared(SID); });
    connect(&status, &LocalStatus::setByOther, this,
            [this](const QString& text, const QString& tone, const QString& location, const QString& SID) {
                notices.setHere(text, tone, location, SID);
            });
    connect(&sharedStatus, &SharedStatus::deleted, &status, &LocalStatus::LoadStatusSettings);
    connect(&status, &LocalStatus::pressedOffline, &network, &NetworkMC::CanSend); // which tells the user
    connect(&status, &LocalStatus::hotKeyChanged, &hotKeys,
            [this](int slot) { hotKeys.RegisterQuickHotKey(slot); });
    connect(&hotKeys, &QuickHotKeys::bringUp, this, [this] { windows.bringUp(); });
    connect(&popups, &Popups::turnOffAlertBar, &alertBar, &AlertBar::TurnOff_AlertBar);
    connect(&popups, &Popups::openMessageOptions, this,
            [this] { windows.show({.window = WindowId::Options, .page = kMessageOptionsPage}); });
    connect(&popups, &Popups::openMessage, &inbox, &Inbox::GetMessageFromPopup);
    connect(&messages, &Messages::arrived, &inbox,
            [this](const ReceivedMessage& message) { messageNotices.messageArrived(message); });
    connect(&inbox, &Inbox::opened, &reply,
            [this](const ReceivedMessage& message) { reply.LoadMessage(message, false); });
    connect(&history, &NotificationHistory::openMessage, &reply, [this](const HistoryMessage& message) {
        reply.LoadMessage({QString::number(message.type), message.everyone, message.MessageID, message.name,
                           message.SID, message.body, message.time, message.date},
                          true);
    });
    connect(&reply, &Reply::loaded, this, [this] { windows.show({WindowId::Reply}); });
    connect(&history, &NotificationHistory::openSent, this,
            [this] { windows.show({WindowId::SentMessage}); });
    connect(
        &alerts, &AlertEngine::quickMessage, this,
        [this](const AlertTarget& target, const QString& text, bool toGroup) {
            constexpr int kRowMode = 5;
            switch (compose.CreateMessage(target, text, toGroup)) {
            case SendResult::TooLong: // the window keeps it, and says so
                windows.show(
                    {.window = WindowId::GroupMessage, .SID = target.SID, .page = kRowMode, .text = text});
                break;
            case SendResult::Sent:
                // A menu may have been open since before it left.
                if (!toGroup && !endpoints.Endpoint_VerifyOnline(target.SID)) {
                    footer.Remark(
                        target.name + QLatin1String(" is offline"),
                        QStringLiteral("The message was sent, but that location cannot receive it"));
                }
                break;
            default:
                break;
            }
        });
}

// Orders that concern the station as a whole.
void Station::attachOrders() {
    protocol.attach(Code::ZA00, [this](const cPacket&) { tmrExit.setEnabled(true); });
    protocol.attach(Code::ZA01, [this](const cPacket&) { network.RestartNetwork(); });
    protocol.attach(Code::ZAAS,
                    [this](const cPacket& packet) { Admin::SetAdminKey(data, packet.bodyValue(1)); });
    protocol.attach(Code::ZAGS, [this](const cPacket& packet) {
        Admin::SetUserSettingRemote(data, packet.bodyValue(1));
    });
}

void Station::SetupFolders(Folders& folders, Admin& admin, cInifile& ini) {
    folders.SetupFolders([&](const QString& dataFolder) {
        admin.LoadAdminSettings(ini, folders.program(), dataFolder);
        return !admin.AdminFilePresent || admin.WTS == u"A";
    });
}

void Station::start() {
    own.remoteSession = m_facts.IsRemoteSession;
    SetupFolders(folders, admin, ini);
    own.startDate = m_clock.dateText();
    own.startTime = m_clock.timeText();
    own.windowsUserName = m_facts.userName;
    identity.LoadSID();
    own.SID = FitOwn(own.SID);
    if (!identity.damage().isEmpty()) {
        saver.tellOnce(identity.damage());
    }
    if (const QString damage = PutAsideDamagedFiles(folders); !damage.isEmpty()) {
        log.LogEvent(QStringLiteral("Files"), damage, QStringLiteral("FDM"));
        saver.tellOnce(damage);
    }
    const cInifile::OneReading reading(ini);
    network.LoadNetworkProtocol();
    settings.LoadSettings(admin.AdminFilePresent && Admin::restricted(admin.ENC));
    if (!settings.unreadable().isEmpty()) {
        log.LogEvent(QStringLiteral("Settings"),
                     QLatin1String("Not understood in user.cfg: ") +
                         settings.unreadable().join(QLatin1String(", ")),
                     QStringLiteral("SET"));
    }
    usage.load();
    own.TAG = settings.User_TAG();
    own.note = FitOwn(settings.Note_ACTIVE()).trimmed();
    if (settings.User_FirstRun()) {
        windows.show({WindowId::Welcome});
    } else {
        windows.show({WindowId::Main});
    }
}

void Station::loadMain() {
    sharedStatus.LoadSharedStatus();
    favorites.LoadFavorites();
    status.LoadStatusSettings();
    groups.LoadMessageGroups();
    snippets.LoadSnippets();
    tones.LoadToneList();
    shell.tmrTime.setEnabled(true);
    updates.tmrUpdates.setEnabled(settings.Settings_UPD());
    own.host = FitOwn(m_facts.hostName);
    profile.LoadLocationName();
}

void Station::mainLoaded() {
    hotKeys.LoadHotKeys();
    inbox.Loadinbox();
    history.LoadRecents();
    if (const QString trouble = tones.trouble(); !trouble.isEmpty()) {
        log.LogEvent(QStringLiteral("Sound"), trouble, QString());
    }
    if (settings.Sound_ST() && settings.Sound_SC()) {
        tones.PlayTone(QStringLiteral("Startup"));
    }
    record.writeStart();
    network.tmrNetStart.setEnabled(true);
}

CloseAction Station::closing(CloseReason reason) {
    switch (reason) {
    case CloseReason::User:
        if (!settings.Settings_EOC()) {
            return CloseAction::Minimise;
        }
        ExitProc();
        break;
    case CloseReason::SessionEnd:
    case CloseReason::TaskManager:
        ExitProc();
        break;
    case CloseReason::Code:
        break;
    }
    return CloseAction::Close;
}

void Station::ExitProc() {
    // Timers and the user go on during the wait for the goodbye; nobody may end the program twice.
    if (m_ended) {
        return;
    }
    m_ended = true;
    windows.saveMainPlace();
    own.exiting = true;
    if (inbox.dirty()) {
        inbox.Saveinbox();
    }
    if (network.protocol() == 0) {
        network.Network_Stop();
    }
    usage.SaveNetworkUsage(false);
    m_popupDisplay.closeAll();
    m_clock.stopTimers();
    hotKeys.UnloadHotKeys();
    sharedStatus.writePending();
    record.writeEnd();
    history.saveUnsaved();
    saver.unload();
    windows.unloadForms();
    windows.unloadMain();
}

} // namespace tessel
