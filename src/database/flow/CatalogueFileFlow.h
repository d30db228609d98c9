// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ICatalogueSaveFlow.h"
#include "database/flow/CatalogueTransfer.h"

namespace nubo::database {

// The list window's "&Guardar", "Guardar &Como" and "&Desde Archivo": the current catalogue
// file, the file dialogs and the choice of workbook or database by extension. It is also the
// save step that emptying the list offers.
class CatalogueFileFlow final : public catalogue::ICatalogueSaveFlow
{
public:
    explicit CatalogueFileFlow(const TransferServices& services);

    CatalogueTransfer& transfer() { return m_transfer; }

    // Menu commands.
    void save();
    void saveAs();
    void loadFromFile();

    QStringList AskOpenFiles();
    QString AskSaveFile(const QString& title, const QString& startFolder);
    // A path of neither form reaches no writer or reader: Failed, and nothing is said.
    TransferOutcome SaveByExtension(const QString& path);
    TransferOutcome LoadByExtension(const QString& path);
    // What "&Desde Archivo" does with the chosen file: its rows are appended, and it becomes the
    // current file only when it was read whole into a list without another catalogue's rows.
    // Also for a file named when the program starts, which is refused with a message unless it
    // is a workbook or a database. Says how it ended.
    TransferOutcome openFile(const QString& path);

    // ICatalogueSaveFlow
    bool saveToCurrentFile(const QString& currentFile) override;
    QString askSaveAsName() override;
    bool saveToPath(const QString& path) override;

    static QString openFilter();
    static QString saveFilter();

private:
    QString withKnownExtension(const QString& chosen) const;
    bool listHoldsCatalogueRows() const;
    QString chooseSaveFile(const QString& title, const QString& startFolder);
    void refuseUnknownFile(const QString& path);
    void askAndSave(const QString& startFolder);

    catalogue::Catalogue& m_catalogue;
    platform::IDialogs& m_dialogs;
    CatalogueTransfer m_transfer;
};

} // namespace nubo::database
