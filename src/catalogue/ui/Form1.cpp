// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/Form1.h"

#include "catalogue/Catalogue.h"
#include "catalogue/DropHandler.h"
#include "catalogue/ListFilter.h"
#include "catalogue/ui/ColumnChooser.h"
#include "catalogue/ui/FindBar.h"
#include "platform/ui/NamedChild.h"
#include "platform/ui/PictureFile.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace nubo::catalogue {

namespace {

QLabel* label(QWidget* parent, const char* name, const QString& text, const QString& tip)
{
    QLabel* l = platform::namedChild<QLabel>(parent, name, text);
    l->setToolTip(tip);
    return l;
}

} // namespace

Form1::Form1(const Form1Services& services, QWidget* parent)
    : QWidget(parent), m_app(services.app), m_catalogue(services.catalogue),
      m_opener(services.opener), m_details(services.details), m_drops(services.drops),
      m_options(services.options), m_hover(services.app, this)
{
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Buscador..."));
    setMouseTracking(true);
    createControls();
    createMenus();
    layOutControls();
    connectCatalogue();
    connectList();
    loadPictures();
    installKeyPreview();
    createFindBar();
    resize(780, 420);
}

void Form1::createControls()
{
    ListView1 = platform::namedChild<CatalogueView>(this, "ListView1");
    m_filter = new ListFilter(m_catalogue.list(), this);
    ListView1->setModel(m_filter);
    m_columns = new ColumnChooser(*ListView1, ShownColumnsStore(m_app), this);
    Command7 = platform::namedChild<QPushButton>(this, "Command7",
                                                 QStringLiteral("&Agregar mas Archivos"));
    Command6 = platform::namedChild<QPushButton>(this, "Command6", QStringLiteral("&Vaciar LISTA"));
    Command1 = platform::namedChild<QPushButton>(this, "Command1", QStringLiteral("Command1"));
    Command1->setVisible(false); // pressed by the search, never by the user
    Check1 = platform::namedChild<QCheckBox>(this, "Check1", QStringLiteral("Check1"));
    Check1->setVisible(false); // holds the always-on-top state
    ProgressBar1 = platform::namedChild<QProgressBar>(this, "ProgressBar1");
    ProgressBar1->setToolTip(QStringLiteral("Muestra el progreso de la carga o guardado"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setValue(0);
    ProgressBar1->hide(); // shown while a catalogue is loaded or saved
    PicExcelConf = label(this, "PicExcelConf", {},
                         QStringLiteral("Abre la ventana de Configuracion de Hoja de Excel"));
    PicOnTop = label(this, "PicOnTop", {},
                     QStringLiteral("Establece si el formulario estará siempre visible o no"));
    Picture2 = label(this, "Picture2", {}, QStringLiteral("Vacía la lista actual"));
    Picture4 = label(this, "Picture4", {}, QStringLiteral("Agregar más archivos a la lista"));
    for (QLabel* picture : {PicExcelConf, PicOnTop, Picture2, Picture4}) {
        picture->setMinimumSize(32, 32);
        picture->setCursor(Qt::PointingHandCursor);
    }
    txtMp3Info = platform::namedChild<QPlainTextEdit>(this, "txtMp3Info");
    txtMp3Info->setToolTip(QStringLiteral("Propiedades del archivo"));
    txtMp3Info->setReadOnly(true);
    txtMp3Info->setVisible(false);
    txtMp3Info->setFixedWidth(230);
    Timer1 = platform::namedChild<QTimer>(this, "Timer1");
    Timer2 = platform::namedChild<QTimer>(this, "Timer2");
    Timer1->setInterval(500); // six ticks: three seconds of flashing
    Timer2->setInterval(10);
    createStatusControls();
    createVolumeControls();
}

void Form1::createStatusControls()
{
    Label2 = label(this, "Label2", m_catalogue.countLine(),
                   QStringLiteral("Informacion sobre el estado de la lista"));
    LblInfo = label(this, "LblInfo", m_catalogue.info().text(),
                    QStringLiteral("Muestra informacion adicional sobre los sucesos que se "
                                   "acontecen"));
    // Comic Sans MS where it is installed; otherwise a plain face, never a look-alike script.
    const QString face = QFontDatabase::hasFamily(QStringLiteral("Comic Sans MS"))
                             ? QStringLiteral("Comic Sans MS")
                             : QFont().family();
    LblInfo->setFont(QFont(face, 10, QFont::Bold));
    // A dark halo keeps white and yellow messages legible on the pale background.
    auto* halo = new QGraphicsDropShadowEffect(LblInfo);
    halo->setOffset(0, 0);
    halo->setBlurRadius(6);
    halo->setColor(QColor(20, 30, 60, 230));
    LblInfo->setGraphicsEffect(halo);
    lblCurList = label(this, "lblCurList", m_catalogue.currentFile(), {});
    // Neither a long message nor a long path widens the window: the message wraps, and the
    // path is cut at its left end, so the file's name stays in sight.
    // Its height is fixed at two lines, so the list above never moves under the pointer as
    // messages come and go.
    LblInfo->setWordWrap(true);
    LblInfo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    LblInfo->setFixedHeight(2 * LblInfo->fontMetrics().lineSpacing() + 2 * LblInfo->margin() +
                            2 * LblInfo->frameWidth());
    lblCurList->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblCurList->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    txtvolumename = platform::namedChild<QLineEdit>(this, "txtvolumename");
    txtvolumename->setToolTip(
        QStringLiteral("Muestra el nombre del ultimo grupo de archivos agregados a la lista"));
}

void Form1::createVolumeControls()
{
    Picture1 =
        label(this, "Picture1", {}, QStringLiteral("Muestra la direccion actual de busqueda"));
    Picture1->setMinimumHeight(20);
    // A deep folder's path is elided by the search, never widening the window.
    Picture1->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // The value labels start empty; the captions beside them are plain labels.
    LblBytesLibres = label(this, "LblBytesLibres", {},
                           QStringLiteral("Espacio libre en la unidad de busqueda actual"));
    LbltotalBytes =
        label(this, "LbltotalBytes", {},
              QStringLiteral("Capacidad de almacenamiento de la unidad de busqueda actual"));
    lblFileSystem = label(this, "lblFileSystem", {}, QStringLiteral("Tipo de sistema de archivos"));
    lblFlags = label(this, "lblFlags", {}, QStringLiteral("Info Adicional"));
    lblMaxComponentLength = label(this, "lblMaxComponentLength", {}, {});
    lblSerialNumber =
        label(this, "lblSerialNumber", {},
              QStringLiteral("Numero de serie de la Unidad donde se realizo la busqueda"));
}

void Form1::layOutControls()
{
    auto* buttons = new QHBoxLayout;
    for (QWidget* w : std::initializer_list<QWidget*>{Picture2, Picture4, PicExcelConf, PicOnTop})
        buttons->addWidget(w);
    buttons->addStretch();
    buttons->addWidget(Command7);
    buttons->addWidget(Command6);
    buttons->addWidget(Command1);
    buttons->addWidget(Check1);

    auto* list = new QHBoxLayout;
    list->addWidget(ListView1, 1);
    list->addWidget(txtMp3Info);

    auto* status = new QHBoxLayout;
    status->addWidget(Label2, 1);
    status->addWidget(LblInfo, 2);

    QGridLayout* volume = volumeGrid();

    auto* root = new QVBoxLayout(this);
    root->setMenuBar(menuBar);
    root->addLayout(buttons);
    root->addLayout(list, 1);
    root->addWidget(ProgressBar1);
    root->addLayout(status);
    root->addLayout(volume);
}

// The volume's captioned fields, two to a row below the volume picture.
QGridLayout* Form1::volumeGrid()
{
    auto* volume = new QGridLayout;
    volume->addWidget(Picture1, 0, 0, 1, 4);
    const std::initializer_list<std::pair<const char*, QWidget*>> fields = {
        {"Numero total de Bytes Libres:", LblBytesLibres},
        {"Numero total de Bytes:", LbltotalBytes},
        {"File System", lblFileSystem},
        {"Flags", lblFlags},
        {"Maximum Component Length", lblMaxComponentLength},
        {"Serial Number", lblSerialNumber},
        {"Volume Name", txtvolumename},
        {"", lblCurList},
    };
    int at = 0;
    for (const auto& [caption, value] : fields) {
        volume->addWidget(new QLabel(QString::fromUtf8(caption), this), 1 + at / 2, (at % 2) * 2);
        volume->addWidget(value, 1 + at / 2, (at % 2) * 2 + 1);
        ++at;
    }
    volume->setColumnStretch(1, 1);
    volume->setColumnStretch(3, 1);
    return volume;
}

void Form1::loadPictures()
{
    m_hover.add(PicExcelConf, QStringLiteral("\\bitmap\\BotonExceloff.jpg"),
                QStringLiteral("\\bitmap\\BotonExcelon.jpg"));
    m_hover.add(Picture2, QStringLiteral("\\bitmap\\scene0boton1form1.jpg"),
                QStringLiteral("\\bitmap\\scene1boton1form1.jpg"));
    m_hover.add(Picture4, QStringLiteral("\\bitmap\\scene0boton2form1.jpg"),
                QStringLiteral("\\bitmap\\scene1boton2form1.jpg"));
    const QPixmap onTop = platform::loadPicture(m_app, QStringLiteral("\\bitmap\\bool2.jpg"));
    if (!onTop.isNull())
        PicOnTop->setPixmap(onTop);

    QString barStyle = QStringLiteral("QProgressBar::chunk { background-color: #6600cc; }");
    const QPixmap background =
        platform::loadPicture(m_app, QStringLiteral("\\bitmap\\mainform1.jpg"));
    if (!background.isNull()) {
        m_background = background;
        setAutoFillBackground(true);
        fitBackground();
        // The bar's background is the colour of the background picture's pixel (1, 1).
        const QImage image = background.toImage();
        if (image.width() > 1 && image.height() > 1)
            barStyle += QStringLiteral(" QProgressBar { background-color: %1; }")
                            .arg(image.pixelColor(1, 1).name());
    }
    ProgressBar1->setStyleSheet(barStyle);
}

void Form1::fitBackground()
{
    // The picture is stretched over the whole window rather than tiled.
    if (m_background.isNull())
        return;
    QPalette palette = this->palette();
    palette.setBrush(QPalette::Window,
                     m_background.scaled(size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    setPalette(palette);
}

void Form1::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitBackground();
}

// Made after the key preview: the find field keeps its editing keys (Ctrl+V pastes there),
// and the window's keys reach the window once the field has passed them on.
void Form1::createFindBar()
{
    m_findBar = new FindBar(*m_filter, this);
    layout()->addWidget(m_findBar);
}

void Form1::setSearchLauncher(ISearchLauncher* launcher)
{
    m_search = launcher;
    m_drops.setSearchLauncher(launcher);
}

void Form1::restoreColumns()
{
    const int quarter = ListView1->viewport()->width() / 4;
    for (int c = 0; c < 4; ++c)
        ListView1->header()->resizeSection(c, quarter);
    // The drive column stays in every row but is not shown.
    ListView1->header()->resizeSection(4, 0);
    m_columns->showChosen();
}

int Form1::focusedPosition() const
{
    m_catalogue.list().flush();
    return m_filter->positionOf(ListView1->currentIndex());
}

void Form1::setMessageColour(quint32 rgb)
{
    if (rgb == m_messageColour && LblInfo->property("coloured").toBool())
        return;
    m_messageColour = rgb;
    LblInfo->setProperty("coloured", true);
    QPalette palette = LblInfo->palette();
    palette.setColor(QPalette::WindowText, QColor::fromRgb(rgb));
    LblInfo->setPalette(palette);
}

void Form1::showProgress(int maximum)
{
    ProgressBar1->setMaximum(maximum);
    ProgressBar1->setValue(0);
    ProgressBar1->show();
}

void Form1::setBusyCursor(bool busy)
{
    if (busy)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void Form1::showAndRaise()
{
    show();
    raise();
}

void Form1::setFolderStrip(const QString& text)
{
    const QFontMetrics metrics = Picture1->fontMetrics();
    const int width = Picture1->contentsRect().width();
    // A search shows every folder it enters: a path that surely fits is not measured.
    if (text.size() * qsizetype(metrics.maxWidth()) <= width)
        Picture1->setText(text);
    else
        Picture1->setText(metrics.elidedText(text, Qt::ElideMiddle, width));
}

void Form1::setDriveSpace(const QString& total, const QString& free)
{
    LbltotalBytes->setText(total);
    LblBytesLibres->setText(free);
}

void Form1::setVolumeDetails(const QString& serial, const QString& maxComponentLength,
                             const QString& fileSystem, const QString& flags)
{
    lblSerialNumber->setText(serial);
    lblMaxComponentLength->setText(maxComponentLength);
    lblFileSystem->setText(fileSystem);
    // The caption's doubled ampersand reads as one on the label, as it always did.
    lblFlags->setText(QString(flags).replace(QStringLiteral("&&"), QStringLiteral("&")));
}

} // namespace nubo::catalogue
