#include "base/Text.h"
#include "kit/AlertPanel.h"
#include "kit/Look.h"
#include "kit/OpenPanel.h"
#include "kit/WidgetPrompts.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

using namespace mosaro;

namespace {

/// Does something to the modal dialog as soon as there is one.
template <class Action>
void withModalDialog(Action action)
{
    QTimer::singleShot(0, qApp, [action] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr) {
            withModalDialog(action);
        } else {
            action(dialog);
        }
    });
}

} // namespace

class TestPrompts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        kit::installLook(*qApp);
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    void alertAnswers_data()
    {
        QTest::addColumn<bool>("hasAlternate");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("answer");
        QTest::newRow("return") << true << int(Qt::Key_Return) << 1;
        QTest::newRow("escape") << true << int(Qt::Key_Escape) << 0;
        QTest::newRow("one button, return") << false << int(Qt::Key_Return) << 1;
        QTest::newRow("one button, escape") << false << int(Qt::Key_Escape) << 0;
    }
    void alertAnswers()
    {
        QFETCH(bool, hasAlternate);
        QFETCH(int, key);
        kit::WidgetPrompts prompts;
        withModalDialog([key](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key(key)); });
        const QString other = hasAlternate ? QStringLiteral("Cancel") : QString();
        QTEST(prompts.alert(
                  {QStringLiteral("Really?"), QStringLiteral("Yes"), other, QStringLiteral("Think.")}),
              "answer");
    }

    void alertButtonsAnswer()
    {
        kit::WidgetPrompts prompts;
        const base::AlertRequest request{
            QStringLiteral("Q"), QStringLiteral("Yes"), QStringLiteral("No"), {}};
        withModalDialog(
            [](QWidget* dialog) { qobject_cast<kit::AlertPanel*>(dialog)->alternateButton()->click(); });
        QCOMPARE(prompts.alert(request), 0);
        withModalDialog(
            [](QWidget* dialog) { qobject_cast<kit::AlertPanel*>(dialog)->defaultButton()->click(); });
        QCOMPARE(prompts.alert(request), 1);
    }

    void alertWithoutButtonsCanBeLeft()
    {
        const kit::AlertPanel panel({QStringLiteral("Q"), {}, {}, {}});
        QVERIFY(panel.alternateButton() == nullptr);
        QCOMPARE(panel.defaultButton()->text(), base::text("Basic.OK"));
    }

    void openPanelModes_data()
    {
        QTest::addColumn<bool>("files");
        QTest::addColumn<bool>("directories");
        QTest::addColumn<bool>("multiple");
        QTest::addColumn<bool>("packages");
        QTest::addColumn<int>("mode");
        QTest::newRow("one file") << true << false << false << false << int(QFileDialog::ExistingFile);
        QTest::newRow("files") << true << false << true << false << int(QFileDialog::ExistingFiles);
        QTest::newRow("folder") << false << true << false << false << int(QFileDialog::Directory);
        QTest::newRow("package") << true << false << false << true << int(QFileDialog::Directory);
    }
    void openPanelModes()
    {
        QFETCH(bool, files);
        QFETCH(bool, directories);
        QFETCH(bool, multiple);
        QFETCH(bool, packages);
        base::OpenPanelRequest request;
        request.files = files;
        request.directories = directories;
        request.multiple = multiple;
        request.packages = packages;
        request.prompt = QStringLiteral("Take");
        request.suffixes = {QStringLiteral("png"), QStringLiteral("PNG")};
        const kit::OpenPanel dialog(request);
        QCOMPARE(int(dialog.acceptMode()), int(QFileDialog::AcceptOpen));
        QTEST(int(dialog.fileMode()), "mode");
        QCOMPARE(dialog.labelText(QFileDialog::Accept), QStringLiteral("Take"));
        if (!packages && files) {
            QVERIFY(dialog.nameFilters().constFirst().endsWith(QStringLiteral(" (*.png)")));
        }
    }

    void foldersAndFilesAreTakenTogether()
    {
        QTemporaryDir place;
        QVERIFY(QDir(place.path()).mkdir(QStringLiteral("a folder")));
        QFile file(place.filePath(QStringLiteral("b \"c\".png")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        base::OpenPanelRequest request;
        request.directories = true;
        request.multiple = true;
        request.directory = place.path();
        request.prompt = QStringLiteral("Take");
        QSettings memory(place.filePath(QStringLiteral("memory.ini")), QSettings::IniFormat);
        kit::WidgetPrompts prompts(&memory);
        const auto takeAll = [](QWidget* dialog) {
            auto* rows = dialog->findChild<QListView*>(QStringLiteral("listView"));
            QTRY_COMPARE(rows->model()->rowCount(rows->rootIndex()), 2);
            dialog->findChild<QTreeView*>(QStringLiteral("treeView"))->setFocus();
            rows->selectAll();
            QPushButton* take = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
            QCOMPARE(take->text(), QStringLiteral("Take"));
            dialog->resize(910, 570);
            take->click();
        };
        withModalDialog(takeAll);
        QStringList chosen = prompts.openPanel(request);
        chosen.sort();
        QCOMPARE(chosen, QStringList({place.filePath(QStringLiteral("a folder")), file.fileName()}));

        withModalDialog([](QWidget* dialog) {
            QPushButton* take = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
            QTRY_VERIFY(take->isEnabled());
            QTest::keyClick(dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")), Qt::Key_Return);
            QVERIFY(dialog->isVisible()); // A stray Return takes no folder.
            QTest::mouseClick(take, Qt::LeftButton);
        });
        QCOMPARE(prompts.openPanel(request), QStringList(place.path())); // The folder on show.

        request.directory.clear();
        kit::WidgetPrompts later(&memory);
        withModalDialog([&place](QWidget* dialog) {
            QCOMPARE(qobject_cast<QFileDialog*>(dialog)->directory(), QDir(place.path()));
            QCOMPARE(dialog->size(), QSize(910, 570));
            qobject_cast<QDialog*>(dialog)->reject();
        });
        QVERIFY(later.openPanel(request).isEmpty());
    }

    void packageIsTakenByDoubleClick()
    {
        QTemporaryDir place;
        QVERIFY(QDir(place.path()).mkpath(QStringLiteral("deep/a.mrlibrary")));
        base::OpenPanelRequest request;
        request.packages = true;
        request.directory = place.path();
        request.suffixes = {QStringLiteral("mrlibrary")};
        kit::WidgetPrompts prompts;
        withModalDialog([](QWidget* dialog) {
            auto* rows = dialog->findChild<QTreeView*>(QStringLiteral("treeView"));
            for (int level = 0; level < 2; ++level) {
                QTRY_COMPARE(rows->model()->rowCount(rows->rootIndex()), 1);
                Q_EMIT rows->activated(rows->model()->index(0, 0, rows->rootIndex()));
            }
        });
        QCOMPARE(prompts.openPanel(request), QStringList(place.filePath(QStringLiteral("deep/a.mrlibrary"))));
    }

    void acceptablePaths_data()
    {
        QTest::addColumn<bool>("packages");
        QTest::addColumn<bool>("directories");
        QTest::addColumn<QStringList>("chosen");
        QTest::addColumn<QStringList>("kept");
        QTest::newRow("a package") << true << false << QStringList{QStringLiteral("a.mrlibrary")}
                                   << QStringList{QStringLiteral("a.mrlibrary")};
        QTest::newRow("a package, typed with a slash")
            << true << false << QStringList{QStringLiteral("a.mrlibrary/")}
            << QStringList{QStringLiteral("a.mrlibrary")};
        QTest::newRow("a package, in capitals") << true << false << QStringList{QStringLiteral("B.MRLIBRARY")}
                                                << QStringList{QStringLiteral("B.MRLIBRARY")};
        QTest::newRow("a plain folder is no package")
            << true << false << QStringList{QStringLiteral("plain")} << QStringList{};
        QTest::newRow("a file is no package")
            << true << false << QStringList{QStringLiteral("file.mrlibrary")} << QStringList{};
        QTest::newRow("a folder when files are asked for")
            << false << false << QStringList{QStringLiteral("plain"), QStringLiteral("file.png")}
            << QStringList{QStringLiteral("file.png")};
        QTest::newRow("repeats") << false << true
                                 << QStringList{QStringLiteral("file.png"), QStringLiteral("./file.png"),
                                                QStringLiteral("plain")}
                                 << QStringList{QStringLiteral("file.png"), QStringLiteral("plain")};
    }
    void acceptablePaths()
    {
        QTemporaryDir place;
        const QDir folder(place.path());
        for (const char* name : {"a.mrlibrary", "B.MRLIBRARY", "plain"}) {
            QVERIFY(folder.mkdir(QString::fromLatin1(name)));
        }
        for (const char* name : {"file.mrlibrary", "file.png"}) {
            QFile file(folder.filePath(QString::fromLatin1(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QFETCH(bool, packages);
        QFETCH(bool, directories);
        QFETCH(QStringList, chosen);
        QFETCH(QStringList, kept);
        base::OpenPanelRequest request;
        request.packages = packages;
        request.directories = directories;
        request.suffixes = {QStringLiteral("mrlibrary")};
        const auto absolute = [&folder](QStringList& paths) {
            for (QString& path : paths) {
                path = folder.path() + u'/' + path;
            }
        };
        absolute(chosen);
        absolute(kept);
        QCOMPARE(kit::acceptablePaths(chosen, request), kept);
    }

    void cancelledPanelsGiveNothing()
    {
        kit::WidgetPrompts prompts;
        const auto reject = [](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->reject(); };
        withModalDialog(reject);
        QCOMPARE(prompts.openPanel({}), QStringList());
        withModalDialog(reject);
        QVERIFY(!prompts.savePanel({}).has_value());
    }

    void savePanelGivesASuffixedPath()
    {
        QTemporaryDir place;
        kit::WidgetPrompts prompts;
        base::SavePanelRequest request;
        request.directory = place.path();
        request.name = QStringLiteral("My Library");
        request.suffix = QStringLiteral("mrlibrary");
        withModalDialog([](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->accept(); });
        const std::optional<QString> path = prompts.savePanel(request);
        QVERIFY(path.has_value());
        QCOMPARE(*path, place.filePath(QStringLiteral("My Library.mrlibrary")));
    }

    void withSuffix_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QString>("result");
        QTest::newRow("missing") << QStringLiteral("/a/b") << QStringLiteral("png")
                                 << QStringLiteral("/a/b.png");
        QTest::newRow("there") << QStringLiteral("/a/b.PNG") << QStringLiteral("png")
                               << QStringLiteral("/a/b.PNG");
        QTest::newRow("another") << QStringLiteral("/a/b.1") << QStringLiteral("png")
                                 << QStringLiteral("/a/b.1.png");
        QTest::newRow("none wanted") << QStringLiteral("/a/b") << QString() << QStringLiteral("/a/b");
        QTest::newRow("empty") << QString() << QStringLiteral("png") << QString();
    }
    void withSuffix()
    {
        QFETCH(QString, path);
        QFETCH(QString, suffix);
        QTEST(kit::withSuffix(path, suffix), "result");
    }
};

QTEST_MAIN(TestPrompts)
#include "tst_prompts.moc"
