// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/cli/ScanCommand.h"

#include "catalogue/Catalogue.h"
#include "database/CatalogueFiles.h"
#include "search/DiscSurvey.h"
#include "search/DriveList.h"
#include "search/FolderWalker.h"
#include "search/cli/SilentDialogs.h"
#include "tags/FileProperties.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

#include <algorithm>
#include <variant>

namespace nubo::search::cli {

namespace {

using nubo::cli::CliIo;

struct ScanArguments
{
    QStringList folders;
    QString mask = QStringLiteral("*.mp3");
    QString group = QStringLiteral("NO ESPECIFICADO");
    QString output;      // empty: the rows go to standard output
    bool tags = false;   // the rows end with the tag columns
    bool details = true; // size, date and tags read for every row
};

const char* const kUsage =
    "uso: nubo-cli scan CARPETA... [--mask MASCARA] [--group NOMBRE] [--output ARCHIVO] [--tags]\n"
    "                  [--sin-detalles]\n";

const char* const kHelp =
    "\nSin --output, o con --output ARCHIVO.tsv, escribe una fila por archivo: NOMBRE, CARPETA,\n"
    "ORIGEN, FORMATO y UNIDAD; con --tags siguen TITULO, ARTISTA, ALBUM, AÑO, PISTA y\n"
    "DURACION de las etiquetas del archivo; y al final siempre TAMAÑO (bytes), FECHA\n"
    "(aaaa-mm-dd hh:mm), TITULO, ARTISTA, ALBUM, AÑO, PISTA, GENERO y DURACION, separados\n"
    "por tabuladores. Dentro de un campo, la barra invertida se escribe \\\\,\n"
    "el tabulador \\t, el salto de linea \\n y el retorno de carro \\r.\n"
    "Con --output ARCHIVO.xls o .mdb guarda todas las columnas y, en la hoja o tabla\n"
    "\"Discos\", el disco de cada carpeta (etiqueta, serie, sistema, capacidad, libre, fecha,\n"
    "carpeta y mascara) bajo el nombre de --group.\n"
    "Con --sin-detalles no lee tamaño, fecha ni etiquetas: esas columnas quedan vacias y la\n"
    "lista sale tan rapido como la de los nombres.\n"
    "Un nombre que no es UTF-8 valido no se puede catalogar: se avisa en la salida de\n"
    "errores, se omite (con su carpeta, si lo es) y el estado de salida es 2.\n";

// A target that takes the rows as standard output shows them, as "find" reads them.
bool isTsvName(const QString& path)
{
    return path.endsWith(QLatin1String(".tsv"), Qt::CaseInsensitive);
}

// The arguments whose folders all exist, or the status to end with.
nubo::cli::Parsed<ScanArguments> checkedFolders(ScanArguments parsed, CliIo& io)
{
    for (const QString& folder : parsed.folders) {
        if (!QFileInfo(folder).isDir()) {
            io.err << "nubo-cli scan: no es una carpeta: " << folder << '\n';
            return nubo::cli::kFileError;
        }
    }
    return parsed;
}

// The arguments, or the status to end with.
nubo::cli::Parsed<ScanArguments> parse(const QStringList& args, CliIo& io)
{
    ScanArguments parsed;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            io.out << kUsage << kHelp;
            return nubo::cli::kOk;
        }
        if (arg == QLatin1String("--tags") || arg == QLatin1String("--sin-detalles")) {
            (arg == QLatin1String("--tags") ? parsed.tags : parsed.details) =
                arg == QLatin1String("--tags");
            continue;
        }
        if (arg == QLatin1String("--mask") || arg == QLatin1String("--group") ||
            arg == QLatin1String("--output")) {
            if (i + 1 >= args.size()) {
                io.err << "nubo-cli scan: falta el valor de " << arg << '\n' << kUsage;
                return nubo::cli::kUsageError;
            }
            QString& value = arg == QLatin1String("--mask")    ? parsed.mask
                             : arg == QLatin1String("--group") ? parsed.group
                                                               : parsed.output;
            value = args[++i];
        } else if (arg.startsWith(QLatin1String("--"))) {
            io.err << "nubo-cli scan: opción desconocida: " << arg << '\n' << kUsage;
            return nubo::cli::kUsageError;
        } else {
            parsed.folders.append(arg);
        }
    }
    if (parsed.folders.isEmpty() || parsed.mask.isEmpty()) {
        io.err << kUsage;
        return nubo::cli::kUsageError;
    }
    if (!parsed.output.isEmpty() && !database::catalogueFormatOf(parsed.output) &&
        !isTsvName(parsed.output)) {
        io.err << "nubo-cli scan: extensión desconocida (se espera .xls, .mdb o .tsv): "
               << parsed.output << '\n';
        return nubo::cli::kUsageError;
    }
    return checkedFolders(std::move(parsed), io);
}

// The walk's reports go straight into the catalogue; a progress line goes to a terminal.
class ScanHost final : public IWalkHost
{
public:
    ScanHost(catalogue::Catalogue& catalogue, CliIo& io) : m_catalogue(catalogue), m_io(io)
    {
        m_progress.start();
    }

    void addFileToList(const QString& path) override { add(path, false); }
    void addKnownFileToList(const QString& path) override { add(path, true); }
    void setFolderStrip(const QString&) override
    {
        if (!m_io.errIsTerminal || m_progress.elapsed() < 200)
            return;
        m_progress.restart();
        m_io.err << "\rBuscando ... " << m_catalogue.list().count() << " archivos" << Qt::flush;
        m_shown = true;
    }
    void beginFolderBatch() override {}
    void endFolderBatch() override {}
    void letEventsRun() override {}
    void undecodableName(const QString& path) override
    {
        finish();
        m_io.err << "nubo-cli scan: nombre que no es UTF-8 valido, omitido: " << path << '\n';
        ++m_leftOut;
    }

    void finish()
    {
        if (m_shown)
            m_io.err << "\r\033[K" << Qt::flush;
        m_shown = false;
    }
    int leftOut() const { return m_leftOut; }
    // The paths of the rows, kept for the tag columns.
    void keepPaths() { m_keepPaths = true; }
    // The path of the row at position p: each new row goes to the top of the list.
    QString pathOf(int p) const { return m_paths.value(m_paths.size() - 1 - p); }

private:
    catalogue::Catalogue& m_catalogue;
    CliIo& m_io;
    QElapsedTimer m_progress;
    bool m_shown = false;
    int m_leftOut = 0;
    bool m_keepPaths = false;
    QStringList m_paths;

    // Adds the file as a row, keeping its path for the tag columns when a row was made.
    void add(const QString& path, bool known)
    {
        QString copy = path;
        const int before = m_catalogue.list().count();
        known ? m_catalogue.AddKnownFileToList(copy) : m_catalogue.AddFileToList(copy);
        if (m_keepPaths && m_catalogue.list().count() > before)
            m_paths.append(path);
    }
};

// One field of a row: the bytes that would split a row or a field are written escaped.
QString field(const QString& text)
{
    // Every byte to escape lies at or below the backslash.
    const auto plain = [](QChar c) {
        return c.unicode() > u'\\' || (c != QLatin1Char('\\') && c != QLatin1Char('\t') &&
                                       c != QLatin1Char('\n') && c != QLatin1Char('\r'));
    };
    if (std::all_of(text.begin(), text.end(), plain))
        return text;
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        if (c == QLatin1Char('\\'))
            out += QLatin1String("\\\\");
        else if (c == QLatin1Char('\t'))
            out += QLatin1String("\\t");
        else if (c == QLatin1Char('\n'))
            out += QLatin1String("\\n");
        else if (c == QLatin1Char('\r'))
            out += QLatin1String("\\r");
        else
            out += c;
    }
    return out;
}

// The tag columns of --tags, each led by a tab.
QString tagColumns(const QString& path)
{
    QString out;
    for (const QString& text : tags::scanTagColumns(path))
        out += QLatin1Char('\t') + field(text);
    return out;
}

// Saves the rows in list order with the list's column captions; the previous file survives a
// failed save.
int saveRows(const catalogue::Catalogue& catalogue, const QString& path, CliIo& io)
{
    const catalogue::CatalogueList& list = catalogue.list();
    // A scan that found nothing (an unplugged disc, a mistyped mask) must not empty a catalogue.
    if (list.count() == 0) {
        io.err << "nubo-cli scan: no se ha encontrado ningún archivo; " << path
               << (QFileInfo::exists(path) ? " se ha dejado como estaba\n" : " no se ha creado\n");
        return nubo::cli::kUsageError;
    }
    const database::CatalogueRowSource rows{
        list.count(), [&list](qsizetype p) {
            const catalogue::CatalogueRow& row = list.row(int(p));
            return database::CatalogueRecord{row.nombre, row.direccion, row.origen, row.formato,
                                             row.details};
        }};
    database::CatalogueSaveOptions options;
    options.discs = catalogue.discs().records();
    const database::SaveOutcome outcome = database::saveCatalogue(path, options, rows);
    if (!outcome.ok) {
        io.err << "nubo-cli scan: no se puede guardar " << path << ": " << outcome.reason << '\n';
        return nubo::cli::kFileError;
    }
    io.err << "nubo-cli scan: " << outcome.written << " filas guardadas en " << path << '\n';
    return nubo::cli::kOk;
}

// The rows as lines of tab-separated fields, in list order.
void writeRows(const catalogue::CatalogueList& list, const ScanHost& host, bool tags,
               QTextStream& out)
{
    for (int p = 0; p < list.count(); ++p) {
        const catalogue::CatalogueRow& row = list.row(p);
        out << field(row.nombre) << '\t' << field(row.direccion) << '\t' << field(row.origen)
            << '\t' << field(row.formato) << '\t' << field(row.unidad);
        if (tags)
            out << tagColumns(host.pathOf(p));
        for (int f = 0; f < core::kDetailFieldCount; ++f)
            out << '\t' << field(row.details.text(static_cast<core::DetailField>(f)));
        out << '\n';
    }
}

// The lines of standard output, written beside the target and renamed over it only once
// complete and flushed to the disk, so the previous file survives a failed save.
int saveTsv(const catalogue::CatalogueList& list, const ScanHost& host, bool tags,
            const QString& path, CliIo& io)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        QTextStream out(&file);
        writeRows(list, host, tags, out);
        out.flush();
        if (out.status() == QTextStream::Ok && file.commit()) {
            io.err << "nubo-cli scan: " << list.count() << " filas guardadas en " << path << '\n';
            return nubo::cli::kOk;
        }
    }
    io.err << "nubo-cli scan: no se puede guardar " << path << ": " << file.errorString() << '\n';
    return nubo::cli::kFileError;
}

// Each folder's disc is recorded under the scan's group; scanning several folders of one group
// keeps the last one's.
void recordDiscs(catalogue::Catalogue& catalogue, const platform::IVolumes& volumes,
                 const platform::IDrives& drives, const ScanArguments& scan)
{
    for (const QString& folder : scan.folders) {
        core::DiscRecord record =
            surveyDisc(volumes, drives, QDir::cleanPath(QFileInfo(folder).absoluteFilePath()),
                       scan.mask, QDateTime::currentSecsSinceEpoch());
        record.origen = scan.group;
        catalogue.discs().recordSearch(record);
    }
}

// The rows to standard output, a .tsv, or a catalogue file; the status to end with.
int writeOutput(const catalogue::Catalogue& catalogue, const ScanHost& host,
                const ScanArguments& scan, CliIo& io)
{
    if (scan.output.isEmpty()) {
        writeRows(catalogue.list(), host, scan.tags, io.out);
        return nubo::cli::kOk;
    }
    if (isTsvName(scan.output))
        return saveTsv(catalogue.list(), host, scan.tags, scan.output, io);
    return saveRows(catalogue, scan.output, io);
}

int runScan(const platform::IDrives& drives, const platform::IDirectoryReader& directories,
            const platform::IVolumes& volumes, const QStringList& args, CliIo& io)
{
    const nubo::cli::Parsed<ScanArguments> parsed = parse(args, io);
    if (const auto* status = std::get_if<nubo::cli::ExitStatus>(&parsed))
        return *status;
    const ScanArguments& scan = std::get<ScanArguments>(parsed);

    SilentDialogs dialogs;
    catalogue::Catalogue catalogue(drives, dialogs);
    catalogue.setGroupName(scan.group);
    catalogue.setReadsDetails(scan.details);
    ScanHost host(catalogue, io);
    const bool asText = scan.output.isEmpty() || isTsvName(scan.output);
    if (scan.tags && asText)
        host.keepPaths();
    FolderWalker walker(host, directories);
    walker.setSixteenBitCounters(false);
    walker.SearchMask = scan.mask;
    walker.CollectFiles = true;
    for (const QString& folder : scan.folders) {
        walker.Searching = true;
        // The command line's counters are never full.
        (void)walker.WalkFolder(
            DriveList::withSlash(QDir::cleanPath(QFileInfo(folder).absoluteFilePath())));
    }
    // Every row's details are read before anything is written.
    (void)catalogue.waitForDetails();
    host.finish();
    recordDiscs(catalogue, volumes, drives, scan);

    const int status = writeOutput(catalogue, host, scan, io);
    if (host.leftOut() > 0) {
        io.err << "nubo-cli scan: " << host.leftOut() << " nombres omitidos\n";
        return nubo::cli::kFileError;
    }
    return status;
}

} // namespace

nubo::cli::CliCommand scanCommand(const platform::IDrives& drives,
                                  const platform::IDirectoryReader& directories,
                                  const platform::IVolumes& volumes)
{
    return {QStringLiteral("scan"),
            QStringLiteral("scan CARPETA... [--mask M] [--group G] [--output ARCHIVO] [--tags] "
                           "[--sin-detalles]"),
            QStringLiteral("Busca archivos como la ventana de búsqueda y muestra las filas "
                           "(scan --help: campos escapados)"),
            [&drives, &directories, &volumes](const QStringList& args, CliIo& io) {
                return runScan(drives, directories, volumes, args, io);
            }};
}

} // namespace nubo::search::cli
