#include "search/ui/ListWindowHost.h"

#include "catalogue/Catalogue.h"
#include "catalogue/ui/CatalogueView.h"
#include "catalogue/ui/Form1.h"
#include "search/SearchEngine.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>

namespace nubo::search {

ListWindowHost::ListWindowHost(catalogue::Catalogue& catalogue, catalogue::Form1& form)
    : m_catalogue(catalogue), m_form(form)
{
}

void ListWindowHost::addFileToList(const QString& path)
{
    QString copy = path;
    m_catalogue.AddFileToList(copy);
}

void ListWindowHost::setFolderStrip(const QString& text)
{
    // A deep folder keeps its start and its end in sight; the middle gives way.
    QLabel* strip = m_form.Picture1;
    strip->setText(
        strip->fontMetrics().elidedText(text, Qt::ElideMiddle, strip->contentsRect().width()));
}

void ListWindowHost::endFolderBatch()
{
    // The list announces new rows in batches of its own; scrolling waits for the next one.
    m_form.ListView1->scrollToBottom();
}

void ListWindowHost::letEventsRun()
{
    QCoreApplication::processEvents();
}

int ListWindowHost::rowCount() const
{
    return m_catalogue.list().count();
}

void ListWindowHost::setGroupName(const QString& name)
{
    m_catalogue.setGroupName(name);
}

void ListWindowHost::updateCountLine()
{
    m_catalogue.UpdateCountLine();
}

void ListWindowHost::showInfoMessage(const QString& text, int delayMs, quint32 rgb)
{
    m_catalogue.ShowInfoMessage(text, qint16(delayMs), rgb);
}

void ListWindowHost::setCaption(const QString& caption)
{
    m_form.setWindowTitle(caption);
}

void ListWindowHost::setFindMenuVisible(bool visible)
{
    m_form.mnuFindFiles->setVisible(visible);
}

void ListWindowHost::setFindMenuCaption(const QString& caption)
{
    m_form.mnuFindFiles->setText(caption);
}

void ListWindowHost::setBusyCursor(bool busy)
{
    if (busy)
        m_form.setCursor(Qt::WaitCursor);
    else
        m_form.unsetCursor();
}

void ListWindowHost::showFolderStrip()
{
    m_form.Picture1->show();
}

void ListWindowHost::startFlash()
{
    m_form.startFlashing();
}

void ListWindowHost::showListWindow()
{
    m_form.show();
    m_form.raise();
}

void ListWindowHost::setDriveSpace(const QString& total, const QString& free)
{
    m_form.LbltotalBytes->setText(total);
    m_form.LblBytesLibres->setText(free);
}

QString ListWindowHost::volumeName() const
{
    return m_form.txtvolumename->text();
}

void ListWindowHost::setVolumeName(const QString& name)
{
    m_form.txtvolumename->setText(name);
}

void ListWindowHost::setVolumeDetails(const QString& serial, const QString& maxComponentLength,
                                      const QString& fileSystem, const QString& flags)
{
    m_form.lblSerialNumber->setText(serial);
    m_form.lblMaxComponentLength->setText(maxComponentLength);
    m_form.lblFileSystem->setText(fileSystem);
    // The caption's doubled ampersand reads as one on the label, as it always did.
    m_form.lblFlags->setText(QString(flags).replace(QStringLiteral("&&"), QStringLiteral("&")));
}

bool ListWindowHost::refuseWhileListBusy()
{
    return m_catalogue.refuseWhileBusy();
}

void ListWindowHost::RunSearch()
{
    if (m_engine)
        m_engine->RunSearch();
}

void ListWindowHost::searchFolder(const QString& folder, const QString& mask)
{
    if (m_engine)
        m_engine->searchDroppedFolder(folder, mask);
}

bool ListWindowHost::stop()
{
    return m_engine && m_engine->requestStop();
}

} // namespace nubo::search
