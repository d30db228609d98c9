// nubo-cli: the command-line front end, linked with core libraries only.
#include "core/cli/Cli.h"
#include "database/cli/DatabaseCommands.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/Terminal.h"
#include "print/cli/CoverCommand.h"
#include "search/cli/ScanCommand.h"
#include "tags/cli/TagCommands.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <memory>

namespace {

// Drawing a cover needs fonts, so "cover" runs under a QGuiApplication on the offscreen
// platform (no display is opened); every other command stays a plain core application.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv)
{
    if (!nubo::print::cli::coverNeedsGui(argc, argv))
        return std::make_unique<QCoreApplication>(argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
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
    commands += nubo::print::cli::coverCommand();
    const nubo::cli::Cli cli(commands);
    const int status = cli.run(application->arguments().mid(1), io);
    out.flush();
    err.flush();
    return status;
}
