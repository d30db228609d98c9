#include "database/flow/CatalogueTransfer.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "core/ActivityLog.h"
#include "database/flow/ITransferView.h"
#include "platform/IDialogs.h"

#include <QFileInfo>

namespace nubo::database {

using catalogue::colours::kRed;
using catalogue::colours::kWhite;

namespace {

QString officeLogText()
{
    return QStringLiteral("Office 97 incorrecto, mal instalado o sin instalar.");
}

} // namespace

CatalogueTransfer::CatalogueTransfer(const TransferServices& services, QObject* parent)
    : QObject(parent), m_s(services)
{
}

// The captions of the first four list columns: row 1 of a workbook, a database's field names.
CatalogueHeader CatalogueTransfer::header() const
{
    const QStringList captions = catalogue::columnCaptions();
    return {captions[0], captions[1], captions[2], captions[3]};
}

// Rows removed while events ran are saved as empty records rather than read past the end.
CatalogueRecord CatalogueTransfer::record(int position) const
{
    if (position >= m_s.catalogue.list().count())
        return {};
    const catalogue::CatalogueRow& row = m_s.catalogue.list().row(position);
    return {row.nombre, row.direccion, row.origen, row.formato};
}

void CatalogueTransfer::appendRow(const CatalogueRecord& record)
{
    m_s.catalogue.list().appendAtBottom(
        {record.nombre, record.direccion, record.origen, record.formato, loadedRowDrive()});
}

// Lets pending events run, then reads the cancel flag: once per row.
bool CatalogueTransfer::cancelSeen()
{
    m_s.view.processEvents();
    return m_cancel;
}

void CatalogueTransfer::showStatus(const QString& text, qint16 delayMs, quint32 colour)
{
    m_s.catalogue.ShowInfoMessage(text, delayMs, colour);
}

void CatalogueTransfer::reportAdded(const QString& count, bool cancelled)
{
    if (cancelled)
        showStatus(QStringLiteral("CANCELADA...Se ha agregado ") + count +
                       QStringLiteral(" archivos a la base de datos."),
                   15000, kRed);
    else
        showStatus(QStringLiteral("Agregados ") + count +
                       QStringLiteral(" archivos a la base de datos."),
                   15000, kWhite);
}

void CatalogueTransfer::showLoaded(qsizetype added, const QString& path, bool cancelled)
{
    const QString tail = QString::number(added) + QStringLiteral(" archivos desde ") + path;
    if (cancelled)
        showStatus(QStringLiteral("CANCELADA...Agregados ") + tail, 15000, kRed);
    else
        showStatus(QStringLiteral("Se han agregado ") + tail, 15000, kWhite);
    m_s.catalogue.UpdateCountLine();
}

// A workbook that cannot be built. The path and the text meet without a separator, kept so.
void CatalogueTransfer::workbookSaveFailed(const QString& path)
{
    m_s.dialogs.messageBox(
        QStringLiteral("Microsoft Office 97 no se encuentra instalado,o su instalación no es "
                       "correcta o la versión  es anterior al la 97"),
        QStringLiteral("Error al guardar archivo"));
    showStatus(QStringLiteral("No se puede acceder al archivo ") + path +
                   QStringLiteral("Version de Office Incompatible"),
               10000, kRed);
    m_s.log.AnotarEnLog(officeLogText() + QLatin1Char('%') + path + QStringLiteral("%Write"));
}

void CatalogueTransfer::workbookLoadFailed(const QString& path)
{
    m_s.dialogs.messageBox(
        QStringLiteral("Microsoft Office 97 no se encuentra instalado,o su instalación es "
                       "incorrecta o la versión no es compatible con el programa."),
        QStringLiteral("Error al leer archivo"));
    showStatus(QStringLiteral("No se puede acceder al archivo ") + path +
                   QStringLiteral(". Version de Office Incompatible"),
               10000, kRed);
    m_s.log.AnotarEnLog(officeLogText() + QLatin1Char('%') + path + QStringLiteral("%Read"));
}

void CatalogueTransfer::fileFailed(const QString& path)
{
    showStatus(QStringLiteral("No se puede acceder al archivo ") + path +
                   QStringLiteral(" Compruebe que el archivo exista y no sea de solo lectura"),
               10000, kRed);
}

// A target the user may replace: an existing folder we can write in, and no read-only file
// (the owner's write bit counts, so a read-only file is kept even for the superuser).
bool CatalogueTransfer::targetWritable(const QString& path)
{
    const QFileInfo target(path);
    const QFileInfo folder(target.absolutePath());
    if (!folder.isDir() || !folder.isWritable())
        return false;
    return !target.exists() ||
           (target.isFile() && target.isWritable() && target.permission(QFile::WriteOwner));
}

} // namespace nubo::database
