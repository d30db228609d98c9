// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "print/CoverLayout.h"
#include "print/CoverQuestion.h"

#include <QDialog>

#include <optional>

class QPrinter;
class QPushButton;
class QTreeWidget;

namespace nubo::platform {
class IDialogs;
}
namespace nubo::catalogue {
class CatalogueList;
class ListFilter;
} // namespace nubo::catalogue

namespace nubo::print {

// The cover window: the list laid out in COLUMNA1..N, previewed, printed or saved as PDF.
class FormPrint1 final : public QDialog
{
    Q_OBJECT
public:
    // shown: the rows the list window shows; while a find hides some, the window offers them
    // (the default) or the whole list.
    FormPrint1(platform::IDialogs& dialogs, const catalogue::CatalogueList& list,
               const catalogue::ListFilter* shown = nullptr, QWidget* parent = nullptr);

    // Loading the window starts everything: the column question, the headers and the names.
    // False, with the window left as it was, when the answer is refused or cancelled.
    [[nodiscard]] bool Form_Load();
    // Form_Load, then shows the window when it succeeded.
    void showCover();

    // Writes the laid-out cover as a PDF; false when the file cannot be written.
    [[nodiscard]] bool saveAsPdf(const QString& path) const;
    // "&Imprimir" on a system without printers: asks for a PDF file name (".pdf" added when
    // the name has no extension) and saves the cover there, reporting a failure.
    void savePdfAsked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The controls, named as the form names them; tests find them by those names.
    QTreeWidget* ListView1 = nullptr;
    QPushButton* cmdPreview = nullptr;
    QPushButton* cmdPrint = nullptr;
    QPushButton* cmdClose = nullptr;

    // The rows the cover takes, or nothing when the user cancels the choice.
    std::optional<QList<CoverRow>> chosenRows();
    void fillList(const CoverGrid& grid);
    void applyColumnWidths();
    void preview();
    void print();
    void paintOn(QPrinter& printer) const;

    platform::IDialogs& m_dialogs;
    const catalogue::CatalogueList& m_list;
    const catalogue::ListFilter* m_shown;
    QList<CoverRow> m_rows;
    QList<QStringList> m_columns;
};

} // namespace nubo::print
