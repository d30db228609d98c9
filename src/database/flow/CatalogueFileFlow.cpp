// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/flow/CatalogueFileFlow.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "database/CatalogueFiles.h"
#include "platform/IDialogs.h"

#include <QFileInfo>

namespace nubo::database {

namespace {

QString saveTitle()
{
    return QStringLiteral("Guardar como...");
}

// The colour and delay of the list window's ordinary status texts.
constexpr qint16 kStatusDelayMs = 5000;
constexpr quint32 kStatusColour = 0x0000FF;

} // namespace

CatalogueFileFlow::CatalogueFileFlow(const TransferServices& services)
    : m_catalogue(services.catalogue), m_dialogs(services.dialogs), m_transfer(services)
{
}

// The first entry's "(*.xls:*.mdb)" with a colon and the two different first descriptions of
// the open and save filters are the program's own texts, kept as they are.
QString CatalogueFileFlow::openFilter()
{
    return QStringLiteral("Archivos de Excel y Access (*.xls:*.mdb)|*.xls;*.mdb|Archivos de "
                          "Excel (*.xls)|*.xls|Archivos de Access(*.mdb)|*.mdb");
}

QString CatalogueFileFlow::saveFilter()
{
    return QStringLiteral("Archivo de Excel o Access (*.xls:*.mdb)|*.xls;*.mdb|Archivos de "
                          "Excel (*.xls)|*.xls|Archivos de Access(*.mdb)|*.mdb");
}

// A name typed without ".xls" or ".mdb" becomes a database.
QString CatalogueFileFlow::withKnownExtension(const QString& chosen) const
{
    const QString tail = chosen.right(4);
    if (tail.compare(QLatin1String(".xls"), Qt::CaseInsensitive) == 0 ||
        tail.compare(QLatin1String(".mdb"), Qt::CaseInsensitive) == 0)
        return chosen;
    return chosen + QStringLiteral(".mdb");
}

QStringList CatalogueFileFlow::AskOpenFiles()
{
    QStringList chosen = m_dialogs.openFileNames(
        QStringLiteral("Seleccione la base de datos a abrir"), openFilter(), QString());
    if (chosen.isEmpty()) {
        m_catalogue.ShowInfoMessage(QStringLiteral("No se abrira ninguna base de datos"),
                                    kStatusDelayMs, kStatusColour);
        return {};
    }
    for (QString& path : chosen)
        path = withKnownExtension(path);
    return chosen;
}

// The save dialog without the cancel text: the chosen name with a known extension, or empty.
// The dialog asked about replacing the name as typed; when the extension makes it another,
// existing file, the question is asked again for that file.
QString CatalogueFileFlow::chooseSaveFile(const QString& title, const QString& startFolder)
{
    const QString chosen = m_dialogs.saveFileName(title, saveFilter(), startFolder);
    if (chosen.isEmpty())
        return {};
    const QString path = withKnownExtension(chosen);
    const QFileInfo target(path);
    if (path == chosen || (!target.exists() && !target.isSymLink()))
        return path;
    const auto answer = m_dialogs.messageBox(
        QStringLiteral("El archivo %1 ya existe.\n¿Desea reemplazarlo?").arg(path), title,
        platform::MessageButtons::YesNo, platform::MessageIcon::Exclamation);
    return answer == platform::MessageAnswer::Yes ? path : QString();
}

QString CatalogueFileFlow::AskSaveFile(const QString& title, const QString& startFolder)
{
    const QString path = chooseSaveFile(title, startFolder);
    if (path.isEmpty())
        m_catalogue.ShowInfoMessage(QStringLiteral("La lista no se guardará"), kStatusDelayMs,
                                    kStatusColour);
    return path;
}

TransferOutcome CatalogueFileFlow::SaveByExtension(const QString& path)
{
    const auto format = catalogueFormatOf(path);
    if (format == CatalogueFormat::Database)
        return m_transfer.SaveListToDatabase(path);
    if (format == CatalogueFormat::Workbook)
        return m_transfer.SaveListToWorkbook(path);
    return TransferOutcome::Failed;
}

TransferOutcome CatalogueFileFlow::LoadByExtension(const QString& path)
{
    const auto format = catalogueFormatOf(path);
    if (format == CatalogueFormat::Workbook)
        return m_transfer.LoadWorkbookIntoList(path);
    if (format == CatalogueFormat::Database)
        return m_transfer.LoadDatabaseIntoList(path);
    return TransferOutcome::Failed;
}

// A cancelled dialog leaves the current file as it was, and so does a save that wrote nothing:
// the label never names a file that was not written.
void CatalogueFileFlow::askAndSave(const QString& startFolder)
{
    const QString path = AskSaveFile(saveTitle(), startFolder);
    if (!path.isEmpty() && SaveByExtension(path) != TransferOutcome::Failed)
        m_catalogue.setCurrentFile(path);
}

// "c:" and "c:\" are the Windows start folders: the dialogs map both to the last folder used or
// the home folder (see docs/platform.md).
void CatalogueFileFlow::save()
{
    if (m_catalogue.currentFile().isEmpty())
        askAndSave(QStringLiteral("c:"));
    else
        SaveByExtension(m_catalogue.currentFile());
}

void CatalogueFileFlow::saveAs()
{
    const QString current = m_catalogue.currentFile();
    askAndSave(current.isEmpty() ? QStringLiteral("c:\\") : current);
}

// Several files are loaded one after another, each as if chosen alone: one that cannot be
// read is reported and the next one is loaded; Escape during a load stops the rest too.
void CatalogueFileFlow::loadFromFile()
{
    for (const QString& path : AskOpenFiles()) {
        if (openFile(path) == TransferOutcome::Cancelled)
            break;
    }
}

// Whether the list already holds rows of some catalogue: rows read from a file (their drive is
// "NN"), or the rows of the current file.
bool CatalogueFileFlow::listHoldsCatalogueRows() const
{
    const catalogue::CatalogueList& list = m_catalogue.list();
    if (list.isEmpty())
        return false;
    if (!m_catalogue.currentFile().isEmpty())
        return true;
    for (int p = 0; p < list.count(); ++p) {
        if (list.row(p).unidad == loadedRowDrive())
            return true;
    }
    return false;
}

// A file becomes current only when it was read whole into a list that held no other
// catalogue's rows, so "&Guardar" never writes a half-read file or one catalogue's rows into
// another. Otherwise, once rows came in, there is no current file and "&Guardar" asks for a
// name; a file that added nothing leaves the current file as it was.
TransferOutcome CatalogueFileFlow::openFile(const QString& path)
{
    if (!catalogueFormatOf(path)) {
        refuseUnknownFile(path);
        return TransferOutcome::Failed;
    }
    const bool mixing = listHoldsCatalogueRows();
    const int before = m_catalogue.list().count();
    const TransferOutcome outcome = LoadByExtension(path);
    if (outcome == TransferOutcome::Done && !mixing)
        m_catalogue.setCurrentFile(path);
    else if (m_catalogue.list().count() != before)
        m_catalogue.setCurrentFile(QString());
    return outcome;
}

// A file handed over at start (or by a later start) that is neither a workbook nor a database.
void CatalogueFileFlow::refuseUnknownFile(const QString& path)
{
    m_dialogs.messageBox(QStringLiteral("No se puede abrir %1: Nubo abre solamente listas "
                                        "guardadas como libro de Excel (.xls) o base de datos de "
                                        "Access (.mdb).")
                             .arg(path),
                         QStringLiteral("Error al leer archivo"));
    m_catalogue.ShowInfoMessage(
        QStringLiteral("No se puede abrir %1: no es un archivo .xls ni .mdb").arg(path), 10000,
        catalogue::colours::kRed);
}

bool CatalogueFileFlow::saveToCurrentFile(const QString& currentFile)
{
    return SaveByExtension(currentFile) == TransferOutcome::Done;
}

// Leaving this dialog without a name stops the emptying without any message.
QString CatalogueFileFlow::askSaveAsName()
{
    return chooseSaveFile(QStringLiteral("Guardar como"), QStringLiteral("c:"));
}

bool CatalogueFileFlow::saveToPath(const QString& path)
{
    return SaveByExtension(path) == TransferOutcome::Done;
}

} // namespace nubo::database
