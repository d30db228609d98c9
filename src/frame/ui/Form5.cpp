// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/Form5.h"

#include "platform/ui/NamedChild.h"
#include "platform/ui/PictureFile.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>

namespace nubo::frame {

namespace {

struct BoxText
{
    core::Option option;
    const char* name;
    const char* caption;
    const char* tooltip;
};

const std::array<BoxText, 6> kBoxes = {{
    {core::Option::DblClkExecute, "ChkDblClick", "Un doble click Ejecuta el archivo seleccionado",
     "Ejecutar cualquier archivo al hacer un doble click sobre él en la lista"},
    {core::Option::PermitirAnims, "ChkAnim", "Pemitir Animaciones",
     "Si se activa, las animaciones aparecen, pero el programa utiliza más recursos del "
     "sistema"},
    {core::Option::EscribirLog, "ChkErrorLog", "Guardar errores en el archivo .log",
     "Indica si se lleva un registro de los errores ocurridos durante el uso del programa"},
    {core::Option::ConfigExcel, "ChkExcConfg",
     "Activar modificaciones de configuracion de Hoja Excel",
     "Si se activa, al guardar la lista en Excel, se guarda con la configuracion indicada"},
    {core::Option::MostrarPro, "Chkpro", "Mostrar propiedades del Archivo en pantalla",
     "Si es mp*, muestra el ID3 tag,sino muestra el tipo de archivo"},
    {core::Option::MInstances, "ChkMInstances",
     "Permitir ejecutar simultaneamente Nubo mas de 1 vez",
     "Permite tener simultaneamente en pantalla mas de una vez este programa"},
}};

constexpr QSize kSize(500, 340);
constexpr int kFirstRow = 70;
constexpr int kRowHeight = 34;

} // namespace

Form5::Form5(const platform::AppFolder& app, core::Options& options, core::OptionsStore& store,
             core::ActivityLog& log, QWidget* parent)
    : QWidget(parent), m_app(app), m_options(options), m_store(store), m_log(log)
{
    setObjectName(QStringLiteral("Form5"));
    setWindowTitle(QStringLiteral("Opciones"));
    setFixedSize(kSize);
    loadPictures();
    buildBoxes();
    buildButtons();
}

void Form5::loadPictures()
{
    platform::setBackgroundPicture(*this, m_app, QStringLiteral("\\bitmap\\mainform5.jpg"));
}

void Form5::buildBoxes()
{
    for (std::size_t i = 0; i < kBoxes.size(); ++i) {
        const BoxText& text = kBoxes[i];
        const int y = kFirstRow + int(i) * kRowHeight;
        auto* check = new QCheckBox(this);
        check->setObjectName(QLatin1String(text.name));
        check->setToolTip(QStringLiteral("Permite activar o desactivar esta opción"));
        check->setGeometry(32, y, 22, 24);
        auto* label = new QLabel(QString::fromUtf8(text.caption), this);
        label->setObjectName(QStringLiteral("Label%1").arg(i + 1));
        label->setToolTip(QString::fromUtf8(text.tooltip));
        label->setGeometry(60, y, 410, 24);
        label->setBuddy(check);
        Label[i] = label;
        bind(text.option, check);
    }
    ChkDblClick = box(core::Option::DblClkExecute);
    ChkAnim = box(core::Option::PermitirAnims);
    ChkErrorLog = box(core::Option::EscribirLog);
    ChkExcConfg = box(core::Option::ConfigExcel);
    Chkpro = box(core::Option::MostrarPro);
    ChkMInstances = box(core::Option::MInstances);
    connect(Chkpro, &QCheckBox::toggled, this, [this] { emit ChkproClicked(); });
}

QCheckBox* Form5::box(core::Option option) const
{
    for (const BoxText& text : kBoxes)
        if (text.option == option)
            return findChild<QCheckBox*>(QLatin1String(text.name));
    return nullptr;
}

// The box and the record field follow each other: the box is the record on screen.
void Form5::bind(core::Option option, QCheckBox* check)
{
    check->setChecked(m_options.isOn(option));
    connect(check, &QCheckBox::toggled, this,
            [this, option](bool on) { m_options.setValue(option, on ? 1 : 0); });
    connect(&m_options, &core::Options::changed, check,
            [check, option](core::Option changed, int value) {
                if (changed == option)
                    check->setChecked(value != 0);
            });
}

void Form5::buildButtons()
{
    auto button = [this](const char* name, const QString& caption, const QString& tooltip,
                         QRect place) {
        auto* b = platform::namedChild<QPushButton>(this, name, caption);
        b->setToolTip(tooltip);
        b->setGeometry(place);
        return b;
    };
    const int y = kSize.height() - 52;
    Command1 = button("Command1", QStringLiteral("&ACEPTAR CAMBIOS"),
                      QStringLiteral("Salvar Cambios"), {24, y, 146, 32});
    Command2 = button("Command2", QStringLiteral("&Volver A Predeterminados"),
                      QStringLiteral("Vuelve a la configuracion original"), {178, y, 184, 32});
    CmdVaciarLog =
        button("CmdVaciarLog", QStringLiteral("Vaciar &Archivo"),
               QStringLiteral("Vaciar el contenido del archivo .log"), {370, y, 106, 32});
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, [this] {
        m_store.GuardarOpciones();
        m_accepting = true;
        close();
        m_accepting = false;
    });
    connect(Command2, &QPushButton::clicked, this, &Form5::VolverAPredeterminados);
    connect(CmdVaciarLog, &QPushButton::clicked, this, [this] { m_log.VaciarLog(); });
}

// Deliberately ticks ChkExcConfg, although the defaults written to a new options file
// leave CONFIGEXCEL at 0. Nothing is saved until "&ACEPTAR CAMBIOS".
void Form5::VolverAPredeterminados()
{
    ChkDblClick->setChecked(true);
    ChkAnim->setChecked(true);
    ChkErrorLog->setChecked(true);
    ChkExcConfg->setChecked(true);
    Chkpro->setChecked(true);
    ChkMInstances->setChecked(false);
}

// Every opening reads the options file again, so changes not accepted are forgotten.
void Form5::showEvent(QShowEvent* event)
{
    if (!event->spontaneous())
        m_store.LeerOpciones();
    QWidget::showEvent(event);
}

// Leaving the window any way but "&ACEPTAR CAMBIOS" (its close box, the main window's button)
// unloads it: the options file is read again, so changes not accepted end with it.
void Form5::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous() && !m_accepting)
        m_store.LeerOpciones();
    QWidget::hideEvent(event);
}

void Form5::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    emit closed();
}

} // namespace nubo::frame
