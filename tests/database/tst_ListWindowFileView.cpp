#include "catalogue/ui/CatalogueView.h"
#include "core/ActivityLog.h"
#include "database/flow/CatalogueFileFlow.h"
#include "database/ui/ListWindowFileView.h"

#include <QKeyEvent>
#include <QProgressBar>

#include "catalogue/Form1Fixture.h"

using namespace nubo;

// The flow in the list window: Escape pressed during a save stops it, and the list and the
// progress bar come back.
class TestListWindowFileView final : public QObject
{
    Q_OBJECT
private slots:
    void escapeStopsASaveAndRestoresTheWindow()
    {
        Form1Fixture f;
        core::ActivityLog log{f.app, [] { return false; }};
        database::SheetSettings sheet;
        database::ListWindowFileView view{f.form};
        database::CatalogueFileFlow flow{{f.catalogue, view, f.dialogs, log, f.options, sheet}};
        QObject::connect(&f.form, &catalogue::Form1::cancelRequested, &flow.transfer(),
                         &database::CatalogueTransfer::raiseCancelFlag);
        for (int i = 0; i < 20000; ++i) // long enough for events to run during the loop
            f.catalogue.list().insertAtTop({QString::number(i), {}, {}, {}, {}});
        bool busyWhileSaving = false;
        QTimer::singleShot(0, &f.form, [&] {
            busyWhileSaving = f.form.ProgressBar1->isVisible() && !f.form.ListView1->isEnabled();
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QCoreApplication::sendEvent(&f.form, &escape);
        });
        flow.SaveByExtension(f.dir.filePath(QStringLiteral("l.xls")));
        QVERIFY(busyWhileSaving);
        QVERIFY(
            f.catalogue.info().text().startsWith(QStringLiteral("CANCELADA...Se ha agregado ")));
        QVERIFY(!f.form.ProgressBar1->isVisible());
        QVERIFY(f.form.ListView1->isEnabled());
    }
};

QTEST_MAIN(TestListWindowFileView)
#include "tst_ListWindowFileView.moc"
