#include "database/flow/CatalogueFileFlow.h"

#include "catalogue/Catalogue.h"
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

QString CatalogueFileFlow::AskOpenFile()
{
    const QString chosen = m_dialogs.openFileName(
        QStringLiteral("Seleccione la base de datos a abrir"), openFilter(), QString());
    if (chosen.isEmpty()) {
        m_catalogue.ShowInfoMessage(QStringLiteral("No se abrira ninguna base de datos"),
                                    kStatusDelayMs, kStatusColour);
        return {};
    }
    return withKnownExtension(chosen);
}

QString CatalogueFileFlow::AskSaveFile(const QString& title, const QString& startFolder)
{
    const QString chosen = m_dialogs.saveFileName(title, saveFilter(), startFolder);
    if (chosen.isEmpty()) {
        m_catalogue.ShowInfoMessage(QStringLiteral("La lista no se guardará"), kStatusDelayMs,
                                    kStatusColour);
        return {};
    }
    return withKnownExtension(chosen);
}

void CatalogueFileFlow::SaveByExtension(const QString& path)
{
    const auto format = catalogueFormatOf(path);
    if (format == CatalogueFormat::Database)
        m_transfer.SaveListToDatabase(path);
    else if (format == CatalogueFormat::Workbook)
        m_transfer.SaveListToWorkbook(path);
}

void CatalogueFileFlow::LoadByExtension(const QString& path)
{
    const auto format = catalogueFormatOf(path);
    if (format == CatalogueFormat::Workbook)
        m_transfer.LoadWorkbookIntoList(path);
    else if (format == CatalogueFormat::Database)
        m_transfer.LoadDatabaseIntoList(path);
}

// A cancelled dialog leaves the current file as it was.
void CatalogueFileFlow::askAndSave(const QString& startFolder)
{
    const QString path = AskSaveFile(saveTitle(), startFolder);
    if (path.isEmpty())
        return;
    m_catalogue.setCurrentFile(path);
    SaveByExtension(path);
}

// "c:" and "c:\" are the Windows start folders: the dialogs map both to the last folder used or
// the home folder (see docs/platform.md).
void CatalogueFileFlow::save()
{
    if (!m_catalogue.currentFile().isEmpty())
        return SaveByExtension(m_catalogue.currentFile());
    askAndSave(QStringLiteral("c:"));
}

void CatalogueFileFlow::saveAs()
{
    const QString current = m_catalogue.currentFile();
    askAndSave(current.isEmpty() ? QStringLiteral("c:\\") : current);
}

void CatalogueFileFlow::loadFromFile()
{
    const QString path = AskOpenFile();
    if (!path.isEmpty())
        openFile(path);
}

void CatalogueFileFlow::openFile(const QString& path)
{
    m_catalogue.setCurrentFile(path);
    LoadByExtension(path);
}

void CatalogueFileFlow::saveToCurrentFile(const QString& currentFile)
{
    SaveByExtension(currentFile);
}

QString CatalogueFileFlow::askSaveAsName()
{
    return AskSaveFile(QStringLiteral("Guardar como"), QStringLiteral("c:"));
}

void CatalogueFileFlow::saveToPath(const QString& path)
{
    SaveByExtension(path);
}

} // namespace nubo::database
