#pragma once

#include <lib_plugins_management/d_abstract_command.h>

#include "frame_sender.h"
#include "line_receiver.h"
#include "subscription.h"

class QTimer;

/// "searchAndConnect": opens the radio link to the wrench whose serial number is the parameter "serialId".
///
///     idle --execute, ATS--> searching --RESP with the serial number, ATH--> hanging up --ATH, ATD <address>-->
///     dialling
///          --ATD echo--> linked echo --DATA--> succeeded, or wrong device when only another address was echoed
///
///     from searching to linked echo:  --ERR:2, DI:C--> probing --OK:1 or OK:0, DT:0--> unlocking --OK…--> succeeded
///                                     --any other ERR, or ERR:2 again--> failed
///     searching and probing:          --10 s--> timed out
///     execute without a serial id:    waiting, until the host ends the run
///
/// Whatever the outcome, the end hangs up and closes the subscription.
class DCmdConnectToDevice : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdConnectToDevice(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdConnectToDevice(QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private Q_SLOTS:
    /// The search has taken too long.
    void disconnectAndFail();

private:
    /// What became of a line. Ended: the run has ended, and the command may be gone.
    enum class Outcome { Declined, Handled, Ended };
    struct Branch
    {
        QLatin1String prefix;
        Outcome (DCmdConnectToDevice::*handle)(const QString& line);
    };
    static const Branch c_branches[];

    bool onScanWritten(quint64 instructionId, const QMap<QString, QVariant>& reply);
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);
    bool onLine(const QString& line);

    Outcome onWrenchHeard(const QString& line);
    Outcome onDialEcho(const QString& line);
    Outcome onHungUp(const QString& line);
    Outcome onLinkOpen(const QString& line);
    Outcome onRefused(const QString& line);
    Outcome onProbeAnswer(const QString& line);

    Outcome fail();
    Outcome finish();

    FrameSender m_sender{*this};
    Subscription m_subscription;
    LineReceiver m_receiver{LineReceiver::Repeats::Dropped, LineReceiver::Content::Text};
    QTimer* m_searchTimer;      // a child
    QString m_serialId;         // of the wanted wrench
    QString m_address;          // of the chosen wrench, without colons; empty: none yet
    bool m_echoMatched = false; // the dongle has echoed the chosen address
    bool m_echoedOther = false; // it has echoed another one
    bool m_probeSent = false;
};
