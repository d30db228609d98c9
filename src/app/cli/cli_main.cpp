// SPDX-License-Identifier: GPL-3.0-or-later
// nubo-cli: the command-line front end, linked with core libraries only.
#include "core/ActivityLog.h"
#include "core/OptionsStore.h"
#include "core/cli/Cli.h"
#include "database/GsfSession.h"
#include "database/cli/DatabaseCommands.h"
#include "library/cli/LibraryCommand.h"
#include "platform/AppFolderLocation.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/Terminal.h"
#include "print/cli/CoverCommand.h"
#include "search/cli/ScanCommand.h"
#include "tags/cli/TagCommands.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <cstdio>

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

// The program's activity log as nubo-cli sees it: the log option is read from the options file
// each time a line comes, and nothing is created before then.
class CliActivityLog final
{
public:
    CliActivityLog() : m_folder(nubo::platform::AppFolderLocation::ofRunningProgram().folder()) {}

    void write(const QString& line)
    {
        m_store.LeerOpciones();
        m_log.AnotarEnLog(line);
    }

private:
    nubo::platform::AppFolder m_folder;
    nubo::core::Options m_options;
    nubo::core::ActivityLog m_log{
        m_folder, [this] { return m_options.isOn(nubo::core::Option::EscribirLog); }};
    nubo::core::OptionsStore m_store{m_folder, m_options, m_log};
};

// The toolkit's own messages (a missing XDG_RUNTIME_DIR, the offscreen platform's font
// look-ups) are not nubo-cli's: standard error carries only the command's own lines.
void dropToolkitMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "nubo-cli: %s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler(dropToolkitMessage);
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setEncoding(QStringConverter::Utf8);
    err.setEncoding(QStringConverter::Utf8);
    nubo::cli::CliIo io{out, err, nubo::platform::stderrIsTerminal()};
    // The compound-file library's own warnings go to the activity log; standard error keeps
    // nubo-cli's own one-line messages.
    CliActivityLog activityLog;
    nubo::database::setGsfMessageSink(
        [&activityLog](const QString& line) { activityLog.write(line); });

    // Each subsystem adds its commands here.
    QList<nubo::cli::CliCommand> commands;
    commands += nubo::tags::cli::tagCommands();
    const nubo::platform::PlatformServices services = nubo::platform::createLinuxPlatform();
    commands +=
        nubo::search::cli::scanCommand(*services.drives, *services.directories, *services.volumes);
    commands += nubo::database::cli::databaseCommands();
    commands += nubo::print::cli::coverCommand();
    QStringList arguments = application->arguments().mid(1);
    commands +=
        nubo::library::cli::libraryCommand(nubo::library::cli::takeLibraryOption(arguments));
    const nubo::cli::Cli cli(commands);
    const int status = cli.run(arguments, io);
    nubo::database::setGsfMessageSink({});
    out.flush();
    err.flush();
    return status;
}
