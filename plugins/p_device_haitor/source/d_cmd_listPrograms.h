#pragma once

#include <lib_plugins_management/d_abstract_command.h>

#include "frame_sender.h"
#include "line_receiver.h"
#include "subscription.h"

class PDeviceHaitor;

/// "listProgram": reads the wrench's programs, one after the other, until the first one comes back.
///
///     sent    awaited                            then
///     IDLE    "OK"                               TR:C
///             a line beginning "ERR"             IDLE again, five times; after that it ends
///     TR:C    a line beginning "OK:" with "TRQ"  store the program, TR:N; or end when it is the first one again
///     TR:N    any line                           TR:C
///
/// "ERR" after TR:C or TR:N ends it as well. However it ends, what was read is stored in the plugin and published, and
/// "cmd_success" is true. Nothing but the caller bounds the wait for an answer.
class DCmdListPrograms : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdListPrograms(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdListPrograms(QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);

    // These return false when the run has ended.
    bool onLine(const QString& line);
    bool onRefusal();
    bool onProgram(const QString& fields);

    void storeAndFinish();

    PDeviceHaitor* m_plugin = nullptr;
    FrameSender m_sender{*this};
    LineReceiver m_receiver{LineReceiver::Repeats::Dropped, LineReceiver::Content::Text};
    Subscription m_subscription;
    QVariantList m_programs;
    QString m_firstProgram; // its fields as received; empty before it has come
    int m_idleRetries = 0;
};
