#include "all_commands.h"

#include "commands_command.h"
#include "completion_command.h"
#include "config_command.h"
#include "doctor_command.h"
#include "ports_command.h"
#include "results_command.h"
#include "run_command.h"
#include "scan_command.h"
#include "session_command.h"

QList<CliEntry> allCommands()
{
    return {
        SessionCommand::entry(), ResultsCommand::entry(),  ScanCommand::entry(),
        RunCommand::entry(),     CommandsCommand::entry(), PortsCommand::entry(),
        DoctorCommand::entry(),  ConfigCommand::entry(),   CompletionCommand::entry(),
    };
}
