// All commands of the main window, by number: what they are called and what they do.
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace tessel {

class AlertEngine;
class LocalStatus;
class NetworkMC;
class OwnPresence;
class ReportRecord;
class Settings;
class Shell;
class Windows;
struct OwnState;

struct CommandRow {
    int id;
    const char* caption; // "&" marks the key; empty: named at run time
    const char* tip;
    bool checkable;
    bool exists; // its window or engine is there; until then it is hidden everywhere
};

// Every command once, by rising number.
const CommandRow* firstCommand();
const CommandRow* endOfCommands();
// nullptr for a number that is no command.
const CommandRow* findCommand(int id);

class Commands : public QObject {
    Q_OBJECT
public:
    // What the commands act upon.
    struct Targets {
        OwnState& own;
        const Settings& settings;
        Windows& windows;
        Shell& shell;
        NetworkMC& network;
        LocalStatus& status;
        OwnPresence& presence;
        AlertEngine& alerts;
        std::function<void()> end;
    };

    explicit Commands(const Targets& targets) : m_targets(targets) {}

    // Carries out a command. `row`: the row of a location that it starts from, nullptr for none; `text`:
    // of the quick menu's text box. An unknown number does nothing.
    void Execute(int id, const ReportRecord* row, const QString& text);

    // Whether a command can be used now.
    bool enabled(int id, const ReportRecord* row) const;
    bool checked(int id) const;
    // The caption as it is now; "&" in a name is doubled.
    QString caption(int id) const;
    QString tip(int id) const;

    bool isOwn(const ReportRecord& row) const;
    // What makes a quick alert's text one for a colour tag.
    const QString& quickAlertPrefix() const;
    // Heading of a row's quick menu.
    QString quickMenuHeading(const ReportRecord& row) const;

private:
    // Whether it sends, so that it is of no use offline.
    static bool sends(int id);
    void general(int id);
    void onRow(int id, const ReportRecord& row, const QString& text);
    void onOwn(int id);
    void sort(int id);

    Targets m_targets;
};

} // namespace tessel
