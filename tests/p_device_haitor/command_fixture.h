#pragma once

#include <QTest>

#include <lib_plugins_management/i_command.h>

#include "p_device_haitor.h"
#include "recording_order.h"
#include "transcript_player.h"
#include "transcript_rows.h"

/// Plays the transcript of the current data row, for a command's test:
///
///     void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/checkSerialId")); }
///     void transcript() { playTranscript(); }
inline void playTranscript()
{
    QFETCH(QString, file);
    QFETCH(int, pieceSize);
    PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
    plugin.initPluginCommands();
    const QString complaint = TranscriptPlayer(plugin, pieceSize).play(file);
    QVERIFY2(complaint.isEmpty(), qPrintable(file + QStringLiteral(", ") + complaint));
}

/// A plugin, a recording order and one command made for a run, as the host makes it.
template <class Command>
struct CommandFixture
{
    explicit CommandFixture(const QMap<QString, QVariant>& parameters = {})
        : prototype(&plugin), held(prototype.createCommand(parameters)), command(static_cast<Command*>(held.data()))
    {
        command->linkWithItsOrder(&order);
    }

    PDeviceHaitor plugin{QUuid::createUuid(), nullptr};
    RecordingOrder order;
    Command prototype{&plugin};
    QSharedPointer<ICommand> held;
    Command* command;
};
