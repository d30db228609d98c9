#include "database/WorkbookReader.h"

#include <QFile>
#include <QFileInfo>

#include <freexl.h>

#include <cmath>

namespace nubo::database {

WorkbookReader::~WorkbookReader()
{
    close();
}

void WorkbookReader::close()
{
    if (m_handle != nullptr)
        freexl_close(m_handle);
    m_handle = nullptr;
    m_sheetName.clear();
    m_rows = 0;
    m_columns = 0;
}

bool WorkbookReader::fail(const QString& message)
{
    close();
    m_error = message;
    return false;
}

bool WorkbookReader::open(const QString& path)
{
    close();
    m_error.clear();
    const QString notWorkbook = QStringLiteral("%1 no es un libro de Excel.").arg(path);
    if (!QFileInfo(path).isFile())
        return fail(QStringLiteral("No se encuentra el archivo %1.").arg(path));
    if (freexl_open(QFile::encodeName(path).constData(), &m_handle) != FREEXL_OK) {
        m_handle = nullptr;
        return fail(notWorkbook);
    }
    // The library accepts some files that are no workbook at all: insist on a known format
    // version and at least one sheet.
    unsigned int version = 0;
    unsigned int sheets = 0;
    if (freexl_get_info(m_handle, FREEXL_BIFF_VERSION, &version) != FREEXL_OK ||
        freexl_get_info(m_handle, FREEXL_BIFF_SHEET_COUNT, &sheets) != FREEXL_OK)
        return fail(notWorkbook);
    const bool knownVersion = version == FREEXL_BIFF_VER_2 || version == FREEXL_BIFF_VER_3 ||
                              version == FREEXL_BIFF_VER_4 || version == FREEXL_BIFF_VER_5 ||
                              version == FREEXL_BIFF_VER_8;
    if (!knownVersion || sheets == 0)
        return fail(notWorkbook);
    const char* name = nullptr;
    if (freexl_get_worksheet_name(m_handle, 0, &name) != FREEXL_OK ||
        freexl_select_active_worksheet(m_handle, 0) != FREEXL_OK ||
        freexl_worksheet_dimensions(m_handle, &m_rows, &m_columns) != FREEXL_OK)
        return fail(notWorkbook);
    m_sheetName = QString::fromUtf8(name);
    return true;
}

CatalogueRecord WorkbookReader::record(quint32 row) const
{
    CatalogueRecord result;
    for (int c = 0; c < 4; ++c)
        result.field(c) = cellText(row - 1, quint16(c));
    return result;
}

QString WorkbookReader::cellText(quint32 row, quint16 column) const
{
    if (m_handle == nullptr || row >= m_rows || column >= m_columns)
        return {};
    FreeXL_CellValue cell;
    if (freexl_get_cell_value(m_handle, row, column, &cell) != FREEXL_OK)
        return {};
    switch (cell.type) {
    case FREEXL_CELL_INT:
        return QString::number(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return generalNumberText(cell.value.double_value);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
        return QString::fromUtf8(cell.value.text_value);
    default:
        return {};
    }
}

QString generalNumberText(double value)
{
    if (!std::isfinite(value))
        return {};
    // General shows at most 11 characters; beyond that large and tiny numbers go scientific.
    const double magnitude = std::fabs(value);
    if (magnitude != 0 && (magnitude >= 1e11 || magnitude < 1e-9)) {
        QString text = QString::number(value, 'E', 5);
        const qsizetype e = text.indexOf(QLatin1Char('E'));
        QString mantissa = text.left(e);
        if (mantissa.contains(QLatin1Char('.'))) {
            while (mantissa.endsWith(QLatin1Char('0')))
                mantissa.chop(1);
            if (mantissa.endsWith(QLatin1Char('.')))
                mantissa.chop(1);
        }
        QString exponent = text.mid(e + 1);
        const QChar sign = exponent.at(0);
        exponent = exponent.mid(1).rightJustified(2, QLatin1Char('0'));
        return mantissa + QLatin1Char('E') + sign + exponent.right(qMax(2, int(exponent.size())));
    }
    const int integerDigits = magnitude < 1 ? 1 : int(std::floor(std::log10(magnitude))) + 1;
    const int decimals = std::max(0, 10 - integerDigits - (value < 0 ? 1 : 0));
    QString text = QString::number(value, 'f', decimals);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

} // namespace nubo::database
