// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QImage picture(Qt::GlobalColor colour = Qt::red)
{
    QImage image(4, 3, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

} // namespace

/// What the one-row models accept, refuse and announce.
class TestSpeciesModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasOneRowOfTwelveNeverSetCells()
    {
        const SpeciesModel model;
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(model.columnCount(), 12);
        for (int column = 0; column < 12; ++column)
            QVERIFY2(!model.data(model.index(0, column), Qt::EditRole).isValid(),
                     qPrintable(QString::number(column)));
        QVERIFY(model.image().isNull());
    }

    void columnNumbersAreThoseOfTheFileFormat()
    {
        QCOMPARE(int(SpeciesModel::Name), 0);
        QCOMPARE(int(SpeciesModel::Aliases), 1);
        QCOMPARE(int(SpeciesModel::Mass), 2);
        QCOMPARE(int(SpeciesModel::Formula), 3);
        QCOMPARE(int(SpeciesModel::InChI), 4);
        QCOMPARE(int(SpeciesModel::Cas), 5);
        QCOMPARE(int(SpeciesModel::PubChem), 6);
        QCOMPARE(int(SpeciesModel::Aie), 7);
        QCOMPARE(int(SpeciesModel::Vie), 8);
        QCOMPARE(int(SpeciesModel::AieComment), 9);
        QCOMPARE(int(SpeciesModel::VieComment), 10);
        QCOMPARE(int(SpeciesModel::StructureImage), 11);
    }

    void metaObjectHasOneSignalAndNothingElse()
    {
        const QMetaObject& meta = SpeciesModel::staticMetaObject;
        QCOMPARE(meta.className(), "SpeciesModel");
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), "imageChanged()");
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.superClass()->className(), "QStandardItemModel");
    }

    void keepsTheRulesOfItemModels()
    {
        SpeciesModel model;
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        for (int column = 0; column < 11; ++column)
            QVERIFY(model.setData(model.index(0, column), u"x"_s, Qt::EditRole));
        QVERIFY(model.setData(model.index(0, 11), picture(), Qt::EditRole));
        model.fromJson({});
    }

    void valueIsReadUnderBothRoles()
    {
        SpeciesModel model;
        const QModelIndex cell = model.index(0, SpeciesModel::Name);
        QVERIFY(model.setData(cell, u"water"_s, Qt::EditRole));
        QCOMPARE(model.data(cell, Qt::EditRole), QVariant(u"water"_s));
        QCOMPARE(model.data(cell, Qt::DisplayRole), QVariant(u"water"_s));
    }

    void editRoleIsTheDefault()
    {
        SpeciesModel model;
        QVERIFY(model.setData(model.index(0, SpeciesModel::Name), u"water"_s));
    }

    void newTextIsWrittenToEveryColumnOnce_data()
    {
        QTest::addColumn<int>("column");
        for (int column = 0; column < 11; ++column)
            QTest::addRow("column %d", column) << column;
    }

    void newTextIsWrittenToEveryColumnOnce()
    {
        QFETCH(const int, column);
        SpeciesModel model;
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        const QModelIndex cell = model.index(0, column);
        QVERIFY(model.setData(cell, u"a"_s, Qt::EditRole));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes.at(0).at(0).toModelIndex(), cell);
        QVERIFY(!model.setData(cell, u"a"_s, Qt::EditRole));
        QCOMPARE(changes.count(), 1);
        QVERIFY(model.setData(cell, u"b"_s, Qt::EditRole));
        QCOMPARE(changes.count(), 2);
        QCOMPARE(model.data(cell).toString(), u"b"_s);
    }

    void unchangedValuesAreRefused_data()
    {
        QTest::addColumn<QVariant>("oldValue");
        QTest::addColumn<QVariant>("newValue");
        QTest::addColumn<bool>("written");
        const QVariant nothing;
        const QVariant empty = QString();
        const QVariant text = u"16.04"_s;
        const QVariant number = 16.04;
        QTest::newRow("nothing over nothing") << nothing << nothing << false;
        QTest::newRow("empty text over nothing") << nothing << empty << false;
        QTest::newRow("empty, not null, text over nothing") << nothing << QVariant(u""_s) << false;
        QTest::newRow("text over nothing") << nothing << text << true;
        QTest::newRow("number over nothing") << nothing << number << true;
        QTest::newRow("zero over nothing") << nothing << QVariant(0.0) << true;
        QTest::newRow("same text") << text << text << false;
        QTest::newRow("other text") << text << QVariant(u"16.0"_s) << true;
        QTest::newRow("text in other case") << QVariant(u"a"_s) << QVariant(u"A"_s) << true;
        QTest::newRow("empty text over text") << text << empty << true;
        QTest::newRow("nothing over text") << text << nothing << true;
        QTest::newRow("blank over text") << text << QVariant(u" "_s) << true;
        QTest::newRow("same number") << number << number << false;
        QTest::newRow("the number's own text") << number << text << false;
        QTest::newRow("number over its own text") << text << number << false;
        QTest::newRow("other number") << number << QVariant(16.05) << true;
        QTest::newRow("empty text over a number") << number << empty << true;
        QTest::newRow("empty text over zero") << QVariant(0.0) << empty << true;
    }

    void unchangedValuesAreRefused()
    {
        QFETCH(const QVariant, oldValue);
        QFETCH(const QVariant, newValue);
        QFETCH(const bool, written);
        SpeciesModel model;
        const QModelIndex cell = model.index(0, SpeciesModel::Mass);
        model.setData(cell, oldValue, Qt::EditRole);
        QCOMPARE(model.data(cell, Qt::EditRole), oldValue);

        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        QCOMPARE(model.setData(cell, newValue, Qt::EditRole), written);
        QCOMPARE(changes.count(), written ? 1 : 0);
        const QVariant now = model.data(cell, Qt::EditRole);
        QCOMPARE(now, written ? newValue : oldValue);
        QCOMPARE(now.typeId(), written ? newValue.typeId() : oldValue.typeId());
    }

    void emptyTextNeverReplacesEmptyText()
    {
        SpeciesModel model;
        const QModelIndex cell = model.index(0, SpeciesModel::Name);
        QVERIFY(model.setData(cell, u"a"_s, Qt::EditRole));
        QVERIFY(model.setData(cell, QString(), Qt::EditRole));
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        QVERIFY(!model.setData(cell, QString(), Qt::EditRole));
        QVERIFY(!model.setData(cell, u""_s, Qt::EditRole));
        QCOMPARE(changes.count(), 0);
    }

    void otherRolesAreRefusedInEveryColumn_data()
    {
        QTest::addColumn<int>("role");
        QTest::newRow("display") << int(Qt::DisplayRole);
        QTest::newRow("tool tip") << int(Qt::ToolTipRole);
        QTest::newRow("decoration") << int(Qt::DecorationRole);
        QTest::newRow("check state") << int(Qt::CheckStateRole);
        QTest::newRow("user") << int(Qt::UserRole);
    }

    void otherRolesAreRefusedInEveryColumn()
    {
        QFETCH(const int, role);
        SpeciesModel model;
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        const QSignalSpy imageChanges(&model, &SpeciesModel::imageChanged);
        for (int column = 0; column < 11; ++column)
            QVERIFY(!model.setData(model.index(0, column), u"a"_s, role));
        QVERIFY(!model.setData(model.index(0, 11), picture(), role));
        QCOMPARE(changes.count(), 0);
        QCOMPARE(imageChanges.count(), 0);
        for (int column = 0; column < 12; ++column)
            QVERIFY(!model.data(model.index(0, column), role).isValid());
    }

    void invalidIndexIsRefused()
    {
        SpeciesModel model;
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        QVERIFY(!model.setData(QModelIndex(), u"a"_s, Qt::EditRole));
        QVERIFY(!model.setData(model.index(1, 0), u"a"_s, Qt::EditRole));
        QVERIFY(!model.setData(model.index(0, 12), u"a"_s, Qt::EditRole));
        QVERIFY(!model.setData(model.index(-1, 0), u"a"_s, Qt::EditRole));
        QCOMPARE(changes.count(), 0);
    }

    void baseModelJudgesEachRoleByItself()
    {
        MyStandardItemModel model;
        model.setRowCount(1);
        model.setColumnCount(1);
        const QModelIndex cell = model.index(0, 0);
        QVERIFY(model.setData(cell, u"a"_s, Qt::EditRole));
        QVERIFY(!model.setData(cell, u"a"_s, Qt::DisplayRole));
        QVERIFY(model.setData(cell, u"a"_s, Qt::ToolTipRole));
        QVERIFY(!model.setData(cell, u"a"_s, Qt::ToolTipRole));
        QVERIFY(!model.setData(cell, QString(), Qt::UserRole));
        QVERIFY(!model.setData(QModelIndex(), u"a"_s, Qt::EditRole));
    }

    void baseModelHasNoMetaObjectOfItsOwn()
    {
        QCOMPARE(MyStandardItemModel::staticMetaObject.className(), "QStandardItemModel");
        QObject owner;
        QCOMPARE((new MyStandardItemModel(&owner))->parent(), &owner);
    }

    void sameImageIsAnnouncedOnce()
    {
        SpeciesModel model;
        const QModelIndex cell = model.index(0, SpeciesModel::StructureImage);
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        const QSignalSpy imageChanges(&model, &SpeciesModel::imageChanged);
        QVERIFY(model.setData(cell, picture(), Qt::EditRole));
        QVERIFY(model.setData(cell, picture(), Qt::EditRole));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(imageChanges.count(), 1);
        QCOMPARE(model.image(), picture());

        QVERIFY(model.setData(cell, picture(Qt::blue), Qt::EditRole));
        QCOMPARE(changes.count(), 2);
        QCOMPARE(imageChanges.count(), 2);
        QCOMPARE(model.image(), picture(Qt::blue));
    }

    void imageIsAnnouncedAfterItWasStored()
    {
        SpeciesModel model;
        QImage seen;
        int changesBefore = 0;
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        connect(&model, &SpeciesModel::imageChanged, this, [&] {
            seen = model.image();
            changesBefore = int(changes.count());
        });
        model.setData(model.index(0, SpeciesModel::StructureImage), picture(), Qt::EditRole);
        QCOMPARE(seen, picture());
        QCOMPARE(changesBefore, 1);
    }

    void otherColumnsNeverAnnounceAnImage()
    {
        SpeciesModel model;
        const QSignalSpy imageChanges(&model, &SpeciesModel::imageChanged);
        for (int column = 0; column < 11; ++column)
            model.setData(model.index(0, column), u"a"_s, Qt::EditRole);
        QCOMPARE(imageChanges.count(), 0);
    }

    void clearingAnImageStoresANullImage_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("nothing") << QVariant();
        QTest::newRow("null image") << QVariant::fromValue(QImage());
        QTest::newRow("text") << QVariant(u"no image"_s);
        QTest::newRow("number") << QVariant(5);
    }

    void clearingAnImageStoresANullImage()
    {
        QFETCH(const QVariant, value);
        SpeciesModel model;
        const QModelIndex cell = model.index(0, SpeciesModel::StructureImage);
        model.setData(cell, picture(), Qt::EditRole);
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        const QSignalSpy imageChanges(&model, &SpeciesModel::imageChanged);

        QVERIFY(model.setData(cell, value, Qt::EditRole));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(imageChanges.count(), 1);
        QCOMPARE(model.data(cell, Qt::EditRole).metaType(), QMetaType::fromType<QImage>());
        QVERIFY(model.image().isNull());

        QVERIFY(model.setData(cell, value, Qt::EditRole));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(imageChanges.count(), 1);
    }

    void clearingANeverSetImageChangesNothing()
    {
        SpeciesModel model;
        const QModelIndex cell = model.index(0, SpeciesModel::StructureImage);
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        const QSignalSpy imageChanges(&model, &SpeciesModel::imageChanged);
        QVERIFY(model.setData(cell, QVariant(), Qt::EditRole));
        QVERIFY(model.setData(cell, QVariant::fromValue(QImage()), Qt::EditRole));
        QCOMPARE(changes.count(), 0);
        QCOMPARE(imageChanges.count(), 0);
        QVERIFY(!model.data(cell, Qt::EditRole).isValid());
    }

    void imageIsNullWhenTheCellHoldsSomethingElse()
    {
        SpeciesModel model;
        model.setItem(0, SpeciesModel::StructureImage, new QStandardItem(u"text"_s));
        QVERIFY(model.image().isNull());
    }
};

QTEST_MAIN(TestSpeciesModel)
#include "tst_speciesmodel.moc"
