#pragma once

#include <lib_plugins_management/d_abstract_command.h>

#include "frame_sender.h"
#include "line_receiver.h"
#include "subscription.h"

class PDeviceHaitor;

/// "setProgram": makes a program the wrench's current one and returns its preset record.
///
/// The one that the plugin already has as "currentProgId" is left alone on the wrench: the plugin's own "setLock"
/// unlocks the tool, then its own "getPresetData" gives the record of the stored list. Any other is stepped to:
///
///     sent    awaited                  then
///     IDLE    a line beginning "OK"    TR:N, in all progId - 1 times; then TR:C
///     TR:N    a line beginning "OK"    likewise
///     TR:C    a line with "TRQ"        publish the record of that line and end
///
/// There is no retry and no limit: a wrench that refuses or is silent, and a refused lock, leave the run open until
/// the caller stops it.
class DCmdSetProgram : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdSetProgram(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdSetProgram(QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool unlockForTheStoredProgram();
    bool onUnlocked(quint64 instructionId, const QMap<QString, QVariant>& reply);
    bool onStoredPreset(quint64 instructionId, const QMap<QString, QVariant>& reply);

    bool stepToTheProgram(PDeviceHaitor& plugin);
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);
    bool onLine(const QString& line); // false: the run has ended
    void sendNextStep();

    void finishWithPreset(const QVariantMap& preset);

    FrameSender m_sender{*this};
    LineReceiver m_receiver{LineReceiver::Repeats::Dropped, LineReceiver::Content::Text};
    Subscription m_subscription;
    int m_progId = 0; // the wanted one
    int m_steps = 0;  // TR:N sent in this run
};
