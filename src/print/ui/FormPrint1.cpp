// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/ui/FormPrint1.h"

#include "catalogue/CatalogueList.h"
#include "catalogue/ListFilter.h"
#include "platform/IDialogs.h"
#include "platform/ui/NamedChild.h"
#include "print/paint/CoverPainter.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace nubo::print {

namespace {

QList<CoverRow> coverRowsOf(const catalogue::CatalogueList& list)
{
    QList<CoverRow> rows;
    rows.reserve(list.count());
    for (int p = 0; p < list.count(); ++p)
        rows.append({list.row(p).nombre, list.row(p).origen});
    return rows;
}

// The rows a find leaves in sight, in the order shown.
QList<CoverRow> shownRowsOf(const catalogue::CatalogueList& list,
                            const catalogue::ListFilter& shown)
{
    QList<CoverRow> rows;
    rows.reserve(shown.shownCount());
    for (int r = 0; r < shown.rowCount(); ++r) {
        const int p = shown.positionOf(shown.index(r, 0));
        if (p >= 0)
            rows.append({list.row(p).nombre, list.row(p).origen});
    }
    return rows;
}

} // namespace

FormPrint1::FormPrint1(platform::IDialogs& dialogs, const catalogue::CatalogueList& list,
                       const catalogue::ListFilter* shown, QWidget* parent)
    : QDialog(parent), m_dialogs(dialogs), m_list(list), m_shown(shown)
{
    setObjectName(QStringLiteral("FormPrint1"));
    setWindowTitle(QStringLiteral("Imprimir tapa"));
    resize(640, 420);
    ListView1 = new QTreeWidget(this);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    ListView1->setRootIsDecorated(false);
    ListView1->setColumnCount(0);
    ListView1->header()->setStretchLastSection(false);
    ListView1->viewport()->installEventFilter(this);
    cmdPreview =
        platform::namedChild<QPushButton>(this, "cmdPreview", QStringLiteral("&Vista previa"));
    cmdPrint = platform::namedChild<QPushButton>(this, "cmdPrint", QStringLiteral("&Imprimir"));
    cmdClose = platform::namedChild<QPushButton>(this, "cmdClose", QStringLiteral("&Cerrar"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {cmdPreview, cmdPrint, cmdClose})
        buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(buttons);

    connect(cmdPreview, &QPushButton::clicked, this, &FormPrint1::preview);
    connect(cmdPrint, &QPushButton::clicked, this, &FormPrint1::print);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
}

std::optional<QList<CoverRow>> FormPrint1::chosenRows()
{
    if (!m_shown || m_shown->shownCount() >= m_shown->totalCount())
        return coverRowsOf(m_list);
    const platform::MessageAnswer answer = m_dialogs.messageBox(
        QStringLiteral("La lista muestra %1 de sus %2 archivos.\n¿Desea imprimir la tapa solo "
                       "con los archivos mostrados?\n(No: con toda la lista)")
            .arg(m_shown->shownCount())
            .arg(m_shown->totalCount()),
        QStringLiteral("Imprimir tapa"), platform::MessageButtons::YesNoCancel,
        platform::MessageIcon::Question);
    if (answer == platform::MessageAnswer::Yes)
        return shownRowsOf(m_list, *m_shown);
    if (answer == platform::MessageAnswer::No)
        return coverRowsOf(m_list);
    return std::nullopt;
}

bool FormPrint1::Form_Load()
{
    std::optional<QList<CoverRow>> chosen = chosenRows();
    if (!chosen)
        return false;
    QList<CoverRow> rows = std::move(*chosen);
    QStringList names;
    for (const CoverRow& row : rows)
        names << row.name;
    const std::optional<CoverGrid> grid = askCoverGrid(m_dialogs, names);
    if (!grid)
        return false;
    m_rows = std::move(rows);
    m_columns = grid->columns;
    fillList(*grid);
    return true;
}

void FormPrint1::showCover()
{
    if (!Form_Load())
        return;
    show();
    raise();
    activateWindow();
}

void FormPrint1::fillList(const CoverGrid& grid)
{
    ListView1->clear();
    ListView1->setColumnCount(grid.n);
    ListView1->setHeaderLabels(grid.headers);
    applyColumnWidths();
    qsizetype lines = 0;
    for (const QStringList& column : grid.columns)
        lines = std::max(lines, column.size());
    QList<QTreeWidgetItem*> items;
    for (qsizetype line = 0; line < lines; ++line) {
        auto* item = new QTreeWidgetItem;
        for (int c = 0; c < grid.n; ++c)
            item->setText(c, grid.columns.at(c).value(line));
        items.append(item);
    }
    ListView1->addTopLevelItems(items);
}

bool FormPrint1::eventFilter(QObject* watched, QEvent* event)
{
    // The columns share the list's visible width whenever it changes.
    if (watched == ListView1->viewport() && event->type() == QEvent::Resize)
        applyColumnWidths();
    return QDialog::eventFilter(watched, event);
}

void FormPrint1::applyColumnWidths()
{
    const int n = ListView1->columnCount();
    if (n == 0)
        return;
    // W = width of the cover list / N, in single precision.
    const float width = static_cast<float>(ListView1->viewport()->width()) / n;
    for (int c = 0; c < n; ++c)
        ListView1->setColumnWidth(c, static_cast<int>(width));
}

bool FormPrint1::saveAsPdf(const QString& path) const
{
    return writeCoverPdf(path, m_rows, m_columns);
}

void FormPrint1::paintOn(QPrinter& printer) const
{
    const FontMeasure measure(&printer);
    // The print dialog and the printer report their own failures; nothing is shown here.
    (void)paintCovers(printer, layoutCover(m_rows, m_columns, measure));
}

void FormPrint1::preview()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog dialog(&printer, this);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* target) { paintOn(*target); });
    dialog.exec();
}

void FormPrint1::print()
{
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        savePdfAsked(); // without a print system the cover is saved as a PDF, which needs none
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        paintOn(printer);
}

void FormPrint1::savePdfAsked()
{
    QString path = m_dialogs.saveFileName(QStringLiteral("Guardar tapa como PDF"),
                                          QStringLiteral("Documento PDF (*.pdf)|*.pdf"),
                                          QDir::home().filePath(QStringLiteral("tapa.pdf")));
    if (path.isEmpty())
        return;
    // The file dialog adds no extension: a name typed without one still gets ".pdf".
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".pdf");
    if (!saveAsPdf(path))
        m_dialogs.messageBox(QStringLiteral("No se pudo guardar la tapa en ") + path,
                             QStringLiteral("Imprimir tapa"));
}

} // namespace nubo::print
