// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/flow/CatalogueTransfer.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "core/ActivityLog.h"
#include "database/CatalogueFiles.h"
#include "database/flow/ITransferView.h"
#include "database/flow/TransferRun.h"
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

// The writer's own reason for a failed save, on a line of its own after the program's text.
QString causeLine(const QString& reason)
{
    return reason.isEmpty() ? QString() : QStringLiteral("\nCausa: ") + reason;
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

void CatalogueTransfer::appendRow(const CatalogueRecord& record)
{
    m_s.catalogue.list().appendAtBottom({record.nombre, record.direccion, record.origen,
                                         record.formato, loadedRowDrive(), record.details});
}

// Every row's details are read before a save takes the rows; Escape during that wait keeps the
// details read so far and the save goes on. False: the program's end stops the save unwritten.
bool CatalogueTransfer::detailsReadForSave()
{
    return m_s.catalogue.waitForDetails() || !m_exiting;
}

// Lets pending events run, then reads the cancel and exit flags: once per row.
bool CatalogueTransfer::stopSeen()
{
    m_s.view.processEvents();
    return m_cancel || m_exiting;
}

// Before each row of a save or load: events run, then the flags stop the loop or the bar moves
// to the row about to be handled.
bool CatalogueTransfer::nextRow(qsizetype index)
{
    if (stopSeen())
        return false;
    m_s.view.setProgress(int(index + 1));
    return true;
}

// A save shows the bar once the file is open; a stop seen because the program ends writes nothing.
SaveHooks CatalogueTransfer::saveHooks(TransferRun& run)
{
    return {[&run](qsizetype count) { run.showProgress(int(count)); },
            [this](qsizetype i) { return nextRow(i); }, [this] { return m_exiting; }};
}

// A load appends each row at the bottom of the list; the caller shows the bar when it opens.
LoadHooks CatalogueTransfer::loadHooks()
{
    return {{},
            [this](qsizetype i) { return nextRow(i); },
            [this](CatalogueRecord&& record) { appendRow(record); },
            [this](QList<core::DiscRecord>&& discs) { m_s.catalogue.discs().merge(discs); }};
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

TransferOutcome CatalogueTransfer::showLoaded(qsizetype added, const QString& path, bool cancelled)
{
    const QString tail = QString::number(added) + QStringLiteral(" archivos desde ") + path;
    if (cancelled)
        showStatus(QStringLiteral("CANCELADA...Agregados ") + tail, 15000, kRed);
    else
        showStatus(QStringLiteral("Se han agregado ") + tail, 15000, kWhite);
    m_s.catalogue.UpdateCountLine();
    return cancelled ? TransferOutcome::Cancelled : TransferOutcome::Done;
}

// A workbook that cannot be built. The path and the text meet without a separator, kept so;
// the writer's reason follows the program's texts, which blame the spreadsheet application.
TransferOutcome CatalogueTransfer::workbookSaveFailed(const QString& path, const QString& reason)
{
    m_s.dialogs.messageBox(
        QStringLiteral("Microsoft Office 97 no se encuentra instalado,o su instalación no es "
                       "correcta o la versión  es anterior al la 97") +
            causeLine(reason),
        QStringLiteral("Error al guardar archivo"));
    showStatus(QStringLiteral("No se puede acceder al archivo ") + path +
                   QStringLiteral("Version de Office Incompatible") + causeLine(reason),
               10000, kRed);
    m_s.log.AnotarEnLog(officeLogText() + QLatin1Char('%') + path + QStringLiteral("%Write"));
    return TransferOutcome::Failed;
}

TransferOutcome CatalogueTransfer::workbookLoadFailed(const QString& path, const QString& reason)
{
    m_s.dialogs.messageBox(
        QStringLiteral("Microsoft Office 97 no se encuentra instalado,o su instalación es "
                       "incorrecta o la versión no es compatible con el programa."),
        QStringLiteral("Error al leer archivo"));
    showStatus(QStringLiteral("No se puede acceder al archivo ") + path +
                   QStringLiteral(". Version de Office Incompatible") + causeLine(reason),
               10000, kRed);
    m_s.log.AnotarEnLog(officeLogText() + QLatin1Char('%') + path + QStringLiteral("%Read"));
    return TransferOutcome::Failed;
}

// Escape during a save over an existing file: the rows written so far are dropped with the
// temporary file and the file stays byte for byte, which the cancel message then says.
TransferOutcome CatalogueTransfer::cancelledOverExisting(const QString& path, qsizetype count)
{
    showStatus(
        QStringLiteral("CANCELADA...Se ha agregado ") + QString::number(count) +
            QStringLiteral(" archivos a la base de datos.") +
            QStringLiteral(" No se ha guardado: el archivo %1 se ha dejado como estaba.").arg(path),
        15000, kRed);
    return TransferOutcome::Failed; // nothing was written: the current file stays as it was
}

// A damaged file keeps the rows read before the damage in the list, says so with the counts,
// and is reported as not read whole, so it never becomes the file "&Guardar" replaces.
TransferOutcome CatalogueTransfer::loadedDamaged(const QString& path, const LoadOutcome& loaded)
{
    const QString text = damageText(path, loaded);
    showStatus(text, 15000, kRed);
    m_s.catalogue.UpdateCountLine();
    m_s.dialogs.messageBox(text + QStringLiteral("\n\nLas filas leídas están en la lista; "
                                                 "guárdelas con otro nombre para no perder "
                                                 "el archivo dañado."),
                           QStringLiteral("Error al leer archivo"));
    return TransferOutcome::Failed;
}

// A load that read its file: a damaged one is told as such, any other as the rows it added and
// the values it skipped.
TransferOutcome CatalogueTransfer::loadRead(TransferRun& run, const QString& path,
                                            const LoadOutcome& loaded)
{
    run.hideProgress();
    if (loaded.damaged && !loaded.stopped)
        return loadedDamaged(path, loaded);
    const TransferOutcome shown = showLoaded(loaded.added, path, loaded.stopped);
    reportSkipped(path, loaded);
    return shown;
}

void CatalogueTransfer::reportSkipped(const QString& path, const LoadOutcome& loaded)
{
    const QString text = skippedText(path, loaded.skipped);
    if (!text.isEmpty())
        m_s.dialogs.messageBox(text, QStringLiteral("Valores omitidos"),
                               platform::MessageButtons::Ok, platform::MessageIcon::Information);
}

TransferOutcome CatalogueTransfer::fileFailed(const QString& path, const QString& reason)
{
    showStatus(QStringLiteral("No se puede acceder al archivo ") + path +
                   QStringLiteral(" Compruebe que el archivo exista y no sea de solo lectura") +
                   causeLine(reason),
               10000, kRed);
    return TransferOutcome::Failed;
}

// Why the target may not be replaced, or an empty text: it needs an existing folder we can
// write in, and no read-only file (the owner's write bit counts, so a read-only file is kept
// even for the superuser).
QString CatalogueTransfer::targetRefusal(const QString& path) const
{
    const QFileInfo target(path);
    const QFileInfo folder(target.absolutePath());
    if (!folder.isDir())
        return QStringLiteral("La carpeta %1 no existe.").arg(folder.filePath());
    if (!folder.isWritable())
        return QStringLiteral("No se puede escribir en la carpeta %1.").arg(folder.filePath());
    if (target.exists() && !target.isFile())
        return QStringLiteral("%1 no es un archivo.").arg(path);
    if (target.exists() && (!target.isWritable() || !target.permission(QFile::WriteOwner)))
        return QStringLiteral("El archivo es de solo lectura.");
    return {};
}

} // namespace nubo::database
