// nubo-cli: the command-line front end, linked with core libraries only.
#include "app/cli/Cli.h"
#include "database/cli/DatabaseCommands.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/Terminal.h"
#include "search/cli/ScanCommand.h"
#include "tags/cli/TagCommands.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setEncoding(QStringConverter::Utf8);
    err.setEncoding(QStringConverter::Utf8);
    nubo::cli::CliIo io{out, err, nubo::platform::stderrIsTerminal()};

    // Each subsystem adds its commands here.
    QList<nubo::cli::CliCommand> commands;
    commands += nubo::tags::cli::tagCommands();
    const nubo::platform::PlatformServices services = nubo::platform::createLinuxPlatform();
    commands += nubo::search::cli::scanCommand(*services.drives, *services.directories);
    commands += nubo::database::cli::databaseCommands();
    const nubo::cli::Cli cli(commands);
    const int status = cli.run(application.arguments().mid(1), io);
    out.flush();
    err.flush();
    return status;
}
