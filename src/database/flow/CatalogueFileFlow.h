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

    QString AskOpenFile();
    QString AskSaveFile(const QString& title, const QString& startFolder);
    void SaveByExtension(const QString& path);
    void LoadByExtension(const QString& path);
    // What "&Desde Archivo" does with the chosen file (it becomes the current file, its rows
    // are appended); also for a file named when the program starts.
    void openFile(const QString& path);

    // ICatalogueSaveFlow
    void saveToCurrentFile(const QString& currentFile) override;
    QString askSaveAsName() override;
    void saveToPath(const QString& path) override;

    static QString openFilter();
    static QString saveFilter();

private:
    QString withKnownExtension(const QString& chosen) const;
    void askAndSave(const QString& startFolder);

    catalogue::Catalogue& m_catalogue;
    platform::IDialogs& m_dialogs;
    CatalogueTransfer m_transfer;
};

} // namespace nubo::database
