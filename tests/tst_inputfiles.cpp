// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/inputfiles.h"
#include "tests/support/otheruser.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// Which files the arguments of korvela-entries name, also for somebody who may not read all.
class TestInputFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        folder = sandbox->path(u"folder"_s);
        QVERIFY(QDir().mkdir(folder));
        for (const QString& path : {sandbox->path(), folder})
            QVERIFY(QFile::setPermissions(path, everything));
    }

    void cleanup()
    {
        QFile::setPermissions(folder, everything);
        sandbox.reset();
    }

    void folderThatCannotBeReadIsTold_data()
    {
        QTest::addColumn<QFile::Permissions>("permissions");
        QTest::newRow("not at all") << QFile::Permissions();
        QTest::newRow("entered only") << QFile::Permissions(QFile::ExeOwner | QFile::ExeOther);
    }
    void folderThatCannotBeReadIsTold()
    {
        QFETCH(const QFile::Permissions, permissions);
        sandbox->write(u"folder/a.json"_s, "{}");
        QVERIFY(QFile::setPermissions(folder, permissions));
        const OtherUser user;
        QVERIFY(user.isValid());
        const InputFiles files = InputFiles::named({folder});
        QCOMPARE(files.paths, QStringList());
        QCOMPARE(files.problems, QStringList(u"The folder %1 cannot be read."_s.arg(folder)));
    }

    void brokenLinkIsTakenOnceInSteppingOrder()
    {
        sandbox->write(u"folder/a10.json"_s, "{}");
        sandbox->write(u"folder/a2.JSON"_s, "{}");
        sandbox->write(u"folder/.a1.json"_s, "{}");
        QVERIFY(QDir().mkdir(folder + u"/a3.json"_s));
        QVERIFY(QFile::link(u"missing"_s, folder + u"/a5.json"_s));
        const InputFiles files = InputFiles::named({folder});
        QCOMPARE(files.problems, QStringList());
        QCOMPARE(files.paths, (QStringList{folder + u"/a2.JSON"_s, folder + u"/a5.json"_s,
                                           folder + u"/a10.json"_s}));
    }

private:
    static constexpr QFile::Permissions everything{0x7777};

    std::unique_ptr<Sandbox> sandbox;
    QString folder;
};

QTEST_GUILESS_MAIN(TestInputFiles)
#include "tst_inputfiles.moc"
