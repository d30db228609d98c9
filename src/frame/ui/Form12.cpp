#include "frame/ui/Form12.h"

#include "platform/ui/PictureFile.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPixmap>

namespace nubo::frame {

namespace {

struct ButtonPlace
{
    int x, y, w, h;
};

// Where the round buttons sit on the skin; each box holds its hot circle.
constexpr std::array<ButtonPlace, 5> kButtons = {{
    {52, 118, 66, 66},  // list window
    {130, 40, 86, 84},  // options
    {318, 150, 42, 40}, // exit
    {228, 112, 72, 84}, // search
    {150, 196, 40, 40}, // author
}};
constexpr ButtonPlace kMinimize = {300, 96, 23, 21};

QLabel* makeBox(QWidget* parent, const QString& name)
{
    auto* box = new QLabel(parent);
    box->setObjectName(name);
    return box;
}

// The hot spot stored in a .CUR file's first directory entry.
QPoint curHotSpot(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.read(14);
    if (head.size() < 14)
        return {};
    auto word = [&](int at) { return int(quint8(head[at])) | int(quint8(head[at + 1])) << 8; };
    return {word(10), word(12)};
}

} // namespace

Form12::Form12(const platform::AppFolder& app, QWidget* parent) : QWidget(parent), m_app(app)
{
    setObjectName(QStringLiteral("Form12"));
    setWindowTitle(QStringLiteral("Nubo 1.5 Beta Version!!!"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    picMainSkin = makeBox(this, QStringLiteral("picMainSkin"));
    for (std::size_t i = 0; i < Picture.size(); ++i) {
        Picture[i] = makeBox(picMainSkin, QStringLiteral("Picture%1").arg(i + 1));
        const ButtonPlace& p = kButtons[i];
        Picture[i]->setGeometry(p.x, p.y, p.w, p.h);
    }
    PicMinimize = makeBox(picMainSkin, QStringLiteral("PicMinimize"));
    PicMinimize->setGeometry(kMinimize.x, kMinimize.y, kMinimize.w, kMinimize.h);
    pikForSYSTRAY = makeBox(this, QStringLiteral("pikForSYSTRAY"));
    pikForSYSTRAY->hide();
    resize(400, 300);
}

quint64 Form12::nativeHandle()
{
    return quint64(winId());
}

void Form12::loadButtonFaces()
{
    const QPixmap minimize =
        platform::loadPicture(m_app, QStringLiteral("\\bitmap\\minimizeoff.jpg"));
    if (!minimize.isNull())
        PicMinimize->setPixmap(minimize);
    for (std::size_t i = 0; i < Picture.size(); ++i) {
        const QPixmap face =
            platform::loadPicture(m_app, QStringLiteral("\\bitmap\\scene0boton%1.jpg").arg(i + 1));
        if (!face.isNull())
            Picture[i]->setPixmap(face);
    }
}

void Form12::letEventsRun()
{
    QCoreApplication::processEvents();
}

std::optional<app::RuntimeError> Form12::setCustomCursor(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return app::RuntimeError::fromNumber(app::errors::kFileNotFound);
    QPixmap picture;
    if (!picture.load(path, "CUR") && !picture.load(path))
        return app::RuntimeError::fromNumber(app::errors::kInvalidPicture);
    const QPoint hot = curHotSpot(path);
    setCursor(QCursor(picture, hot.x(), hot.y()));
    return std::nullopt;
}

std::optional<app::RuntimeError> Form12::addTrayIcon()
{
    return std::nullopt;
}

std::optional<app::RuntimeError> Form12::prepareSkinBox()
{
    picMainSkin->setFrameShape(QFrame::NoFrame);
    picMainSkin->setScaledContents(false);
    return std::nullopt;
}

void Form12::loadSkin(const QString& path)
{
    QPixmap skin;
    if (QFileInfo(path).isFile() && skin.load(path)) {
        picMainSkin->setPixmap(skin);
        picMainSkin->resize(skin.size());
    }
}

void Form12::fitToSkin()
{
    const QPixmap skin = picMainSkin->pixmap();
    if (!skin.isNull())
        resize(skin.size());
}

void Form12::applyRegion() {}

} // namespace nubo::frame
