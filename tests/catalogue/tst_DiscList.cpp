// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DiscTotals.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "CatalogueFixture.h"

using namespace nubo::catalogue;
using nubo::core::DiscField;
using nubo::core::DiscRecord;

namespace {

DiscRecord discOf(const QString& origen, const QString& ubicacion = {})
{
    DiscRecord disc;
    disc.origen = origen;
    disc.etiqueta = QStringLiteral("ETIQUETA");
    disc.ubicacion = ubicacion;
    return disc;
}

// The catalogue with the models under test watched, and its discs' cell texts.
struct DiscFixture : CatalogueFixture
{
    DiscList& discs = catalogue.discs();
    QAbstractItemModelTester discTester{&discs,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest};
    QAbstractItemModelTester listTester{&catalogue.list(),
                                        QAbstractItemModelTester::FailureReportingMode::QtTest};

    QString cell(int row, int column) const { return discs.index(row, column).data().toString(); }
    bool edit(int row, DiscField field, const QString& text)
    {
        return discs.setData(discs.index(row, int(field)), text);
    }
    // The groups of the rows, top row first.
    QStringList rowGroups() const
    {
        QStringList groups;
        for (int p = 0; p < catalogue.list().count(); ++p)
            groups.append(catalogue.list().row(p).origen);
        return groups;
    }
};

} // namespace

class TestDiscList final : public QObject
{
    Q_OBJECT

private slots:
    // Each group's files, known bytes and known seconds, oldest group first, and the list's.
    void totalsPerDiscAndOverall()
    {
        DiscFixture f;
        CatalogueList& list = f.catalogue.list();
        list.insertAtTop(rowOf(QStringLiteral("Disco 1"), 1000, 245));
        list.insertAtTop(rowOf(QStringLiteral("Disco 1"), 5'000'000'000, 3600));
        list.insertAtTop(rowOf(QStringLiteral("Disco 2"), -1, -1));
        list.insertAtTop(rowOf(QStringLiteral("Disco 1"), 24, -1));
        list.appendAtBottom(rowOf(QStringLiteral("Viejo"), 7, 59));
        const DiscTotals totals = DiscTotals::of(list);
        QCOMPARE(totals.groups(), QStringList({QStringLiteral("Viejo"), QStringLiteral("Disco 1"),
                                               QStringLiteral("Disco 2")}));
        QCOMPARE(totals.group(QStringLiteral("nadie")), GroupTotals{});
        QCOMPARE(totals.overall(), (GroupTotals{5, 5'000'001'031, 3904}));
        QCOMPARE(DiscTotals::durationText(59), QStringLiteral("0:00:59"));
        QCOMPARE(DiscTotals::durationText(100 * 3600), QStringLiteral("100:00:00"));

        // The model: records first, then the groups that have rows but no record, each with
        // its totals (unknown sizes and lengths count nothing); a record without rows counts
        // nothing.
        f.discs.merge({discOf(QStringLiteral("Disco 2")), discOf(QStringLiteral("Vacio"))});
        f.catalogue.refreshDiscTotals();
        QCOMPARE(f.discs.rowCount(), 4);
        const auto row = [&f](int r) {
            return QStringList{f.cell(r, int(DiscField::Origen)),
                               f.cell(r, int(DiscField::Etiqueta)), f.cell(r, DiscList::Archivos),
                               f.cell(r, DiscList::Bytes), f.cell(r, DiscList::Duracion)};
        };
        QCOMPARE(row(0), QStringList({"Disco 2", "ETIQUETA", "1", "0", "0:00:00"}));
        QCOMPARE(row(1), QStringList({"Vacio", "ETIQUETA", "0", "0", "0:00:00"}));
        QCOMPARE(row(2), QStringList({"Viejo", "", "1", "7", "0:00:59"}));
        QCOMPARE(row(3), QStringList({"Disco 1", "", "3", "5000001024", "1:04:05"}));
        QCOMPARE(f.discs.records().size(), 2);
        // Once its rows are gone, a group without a record goes from the view.
        list.removeAt(list.count() - 1);
        f.catalogue.refreshDiscTotals();
        QCOMPARE(f.discs.unrecordedGroups(), QStringList{QStringLiteral("Disco 1")});
    }

    // UBICACION and NOTAS are typed in place; typing them for a group without a record makes
    // its record where its row was. The computed fields stay as the search left them.
    void typedFieldsAreKept()
    {
        DiscFixture f;
        f.catalogue.list().insertAtTop(rowOf(QStringLiteral("A")));
        f.catalogue.list().insertAtTop(rowOf(QStringLiteral("B")));
        f.catalogue.list().insertAtTop(rowOf(QStringLiteral("C")));
        f.catalogue.refreshDiscTotals();
        QCOMPARE(f.discs.records().size(), 0);
        QVERIFY(f.edit(1, DiscField::Notas, QString())); // nothing typed: no record
        QCOMPARE(f.discs.records().size(), 0);
        QVERIFY(f.edit(1, DiscField::Ubicacion, QStringLiteral("Estante 3, caja azul")));
        QCOMPARE(f.discs.records().size(), 1);
        QCOMPARE(f.cell(0, int(DiscField::Origen)), QStringLiteral("B"));
        QCOMPARE(f.cell(0, int(DiscField::Ubicacion)), QStringLiteral("Estante 3, caja azul"));
        QCOMPARE(f.cell(1, int(DiscField::Origen)), QStringLiteral("A"));
        QVERIFY(f.edit(0, DiscField::Notas, QStringLiteral("prestado a Luis")));
        QCOMPARE(f.discs.find(QStringLiteral("B"))->notas, QStringLiteral("prestado a Luis"));
        QVERIFY(!f.edit(0, DiscField::Etiqueta, QStringLiteral("X")));
        QVERIFY(!(f.discs.flags(f.discs.index(0, DiscList::Bytes)) & Qt::ItemIsEditable));
        // A later search of the group keeps what was typed.
        DiscRecord searched = discOf(QStringLiteral("B"));
        f.discs.recordSearch(searched);
        QCOMPARE(f.discs.find(QStringLiteral("B"))->ubicacion,
                 QStringLiteral("Estante 3, caja azul"));
        QCOMPARE(f.cell(0, int(DiscField::Etiqueta)), QStringLiteral("ETIQUETA"));
    }

    // Renaming a disc renames every row of its group; an empty name, another disc's or
    // another group's name, and a busy list are refused with the reason.
    void renamingADiscRenamesItsRows_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("refusal"); // empty: renamed
        const QString renamed;
        QTest::newRow("record") << 0 << "  Disco 9 " << renamed;
        QTest::newRow("no record") << 1 << "Disco 9" << renamed;
        QTest::newRow("same name") << 0 << "Disco 1" << renamed;
        QTest::newRow("empty") << 0 << "  "
                               << "El nombre del disco no puede quedar vacío.";
        QTest::newRow("another disc") << 0 << "Disco 2"
                                      << "Ya hay un disco llamado \"Disco 2\": elija otro nombre.";
        QTest::newRow("rows not yet counted")
            << 0 << "Nuevo"
            << "Ya hay archivos del grupo \"Nuevo\" en la lista: elija otro nombre.";
        QTest::newRow("busy") << 0 << "Disco 9"
                              << "Espere a que la lista termine de guardarse o cargarse (Esc lo "
                                 "detiene)";
    }
    void renamingADiscRenamesItsRows()
    {
        QFETCH(int, row);
        QFETCH(QString, name);
        QFETCH(QString, refusal);
        DiscFixture f;
        CatalogueList& list = f.catalogue.list();
        for (const char* group : {"Disco 1", "Disco 2", "Disco 1"})
            list.insertAtTop(rowOf(QString::fromLatin1(group), 10, 60));
        f.discs.recordSearch(discOf(QStringLiteral("Disco 1"), QStringLiteral("Estante 3")));
        f.catalogue.refreshDiscTotals();
        list.insertAtTop(rowOf(QStringLiteral("Nuevo"))); // counted at the next refresh
        f.catalogue.setBusy(QTest::currentDataTag() == QByteArray("busy"));
        const QString from = f.cell(row, int(DiscField::Origen));
        const QStringList groupsBefore = f.rowGroups();
        QSignalSpy changed(&list, &QAbstractItemModel::dataChanged);
        QSignalSpy refused(&f.discs, &DiscList::editRefused);

        QCOMPARE(f.edit(row, DiscField::Origen, name), refusal.isEmpty());
        if (!refusal.isEmpty()) {
            QCOMPARE(refused.size(), 1);
            QCOMPARE(refused.first().first().toString(), refusal);
            QCOMPARE(f.rowGroups(), groupsBefore);
            QCOMPARE(f.cell(row, int(DiscField::Origen)), from);
            return;
        }
        const QString to = name.trimmed();
        QStringList expected = groupsBefore;
        expected.replaceInStrings(QRegularExpression(QStringLiteral("^%1$").arg(from)), to);
        QCOMPARE(f.rowGroups(), expected);
        QCOMPARE(f.cell(row, int(DiscField::Origen)), to);
        QCOMPARE(f.cell(row, DiscList::Archivos), from == QStringLiteral("Disco 1") ? "2" : "1");
        QCOMPARE(changed.isEmpty(), from == to);
        if (row == 0)
            QCOMPARE(f.discs.find(to)->ubicacion, QStringLiteral("Estante 3"));
        QVERIFY(f.discs.find(from) == nullptr || from == to);
    }
};

QTEST_GUILESS_MAIN(TestDiscList)
#include "tst_DiscList.moc"
