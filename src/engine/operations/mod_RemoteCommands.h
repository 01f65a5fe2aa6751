// Commands that other programs of this computer hand in as text.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tessel {

class AlertEngine;
class Endpoints;
class LocalStatus;
class NetworkMC;
class OwnPresence;
class Session;
class Windows;
struct OwnState;

class RemoteCommands {
public:
    // What the commands act upon.
    struct Targets {
        OwnState& own;
        Windows& windows;
        Session& session;
        NetworkMC& network;
        Endpoints& endpoints;
        LocalStatus& status;
        OwnPresence& presence;
        AlertEngine& alerts;
        std::function<void()> endNow;
        std::function<void()> endSoon;
    };

    explicit RemoteCommands(const Targets& targets) : m_targets(targets) {}

    // Carries out one command: a verb, or a verb, ":" and an argument, which cannot hold a colon. True
    // when the command reports back that it was accepted, which only two do; an unknown one does
    // nothing.
    bool execute(const QString& command);

    // Usage lines of all verbs, for a client's help.
    static QStringList help();

private:
    Targets m_targets;
};

} // namespace tessel
