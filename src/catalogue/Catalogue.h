#pragma once

// The catalogue and its list operations, apart from any widget.
//
//   void AddFileToList(QString& path)   adds one existing file as the new top row; on return
//                                      path holds the file's folder (see RowDeriver)
//   void DeleteSelectedRows(), EmptyList(), SortByColumn(int column)
//   void ShowInfoMessage(text, delayMs, colour 0xRRGGBB), UpdateCountLine()
//   groupName()/setGroupName()         the ORIGEN of rows added from now on
//   currentFile()/setCurrentFile()     the current catalogue database file (lblCurList)
//   list(), info(), countLine()        the rows, the message line and the count line

#include "catalogue/CatalogueList.h"
#include "catalogue/InfoMessage.h"
#include "catalogue/RowDeriver.h"

#include <QObject>

namespace nubo::platform {
class IDialogs;
}

namespace nubo::catalogue {

class ICatalogueSaveFlow;

class Catalogue final : public QObject
{
    Q_OBJECT
public:
    Catalogue(const platform::IDrives& drives, platform::IDialogs& dialogs,
              QObject* parent = nullptr);

    // The save steps of EmptyList; without one, answering Yes keeps the list as it is.
    void setSaveFlow(ICatalogueSaveFlow* flow) { m_saveFlow = flow; }

    CatalogueList& list() { return m_list; }
    const CatalogueList& list() const { return m_list; }
    InfoMessage& info() { return m_info; }
    const QString& countLine() const { return m_countLine; }

    const QString& groupName() const { return m_groupName; }
    void setGroupName(const QString& name);
    const QString& currentFile() const { return m_currentFile; }
    void setCurrentFile(const QString& path);
    Qt::SortOrder sortOrder() const { return m_sortOrder; }

    void AddFileToList(QString& path);
    void DeleteSelectedRows();
    void EmptyList();
    void SortByColumn(int column);
    void ShowInfoMessage(const QString& text, qint16 delayMs, quint32 colour);
    void UpdateCountLine();

signals:
    void countLineChanged(const QString& text);
    void groupNameChanged(const QString& name);
    void currentFileChanged(const QString& path);

private:
    void setCountLine(const QString& text);
    // True when the list may be emptied after the user's answer to the save question.
    bool offerToSave();

    platform::IDialogs& m_dialogs;
    ICatalogueSaveFlow* m_saveFlow = nullptr;
    CatalogueList m_list;
    RowDeriver m_deriver;
    InfoMessage m_info;
    QString m_countLine = QStringLiteral("La lista esta vacia");
    QString m_groupName;
    QString m_currentFile;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};

} // namespace nubo::catalogue
