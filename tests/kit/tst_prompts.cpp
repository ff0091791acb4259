#include "kit/AlertPanel.h"
#include "kit/OpenPanel.h"
#include "kit/WidgetPrompts.h"
#include "support/Files.h"
#include "support/WindowTest.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

using namespace mosaro;
using namespace Qt::StringLiterals;

namespace {

/// Does something to the modal dialog as soon as there is one.
template <class Action>
void withModalDialog(Action action)
{
    QTimer::singleShot(0, qApp, [action] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr)
            withModalDialog(action);
        else
            action(dialog);
    });
}

struct PathsRow {
    bool packages, directories;
    QStringList chosen, kept;
};

} // namespace

class TestPrompts : public test::WindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void alertAnswers()
    {
        kit::WidgetPrompts prompts;
        for (const QString& other : {u"Cancel"_s, QString()}) {
            for (const auto& [key, answer] : {std::pair(Qt::Key_Return, 1), std::pair(Qt::Key_Escape, 0)}) {
                withModalDialog([key = key](QWidget* dialog) { QTest::keyClick(dialog, key); });
                QCOMPARE(prompts.alert({u"Really?"_s, u"Yes"_s, other, u"Think."_s}), answer);
            }
        }
        for (const auto& [button, answer] : {std::pair(&kit::AlertPanel::defaultButton, 1),
                                             std::pair(&kit::AlertPanel::alternateButton, 0)}) {
            withModalDialog([button = button](QWidget* dialog) {
                (qobject_cast<kit::AlertPanel*>(dialog)->*button)()->click();
            });
            QCOMPARE(prompts.alert({u"Q"_s, u"Yes"_s, u"No"_s, {}}), answer);
        }
        const kit::AlertPanel wordless({u"Q"_s, {}, {}, {}});
        QVERIFY(wordless.alternateButton() == nullptr);
        QCOMPARE(wordless.defaultButton()->text(), base::text("Basic.OK"));
    }

    void openPanelModes()
    {
        const auto panel = [](bool files, bool directories, bool multiple, bool packages) {
            base::OpenPanelRequest request;
            request.files = files;
            request.directories = directories;
            request.multiple = multiple;
            request.packages = packages;
            request.prompt = u"Take"_s;
            request.suffixes = {u"png"_s, u"PNG"_s};
            return std::make_unique<kit::OpenPanel>(request);
        };
        const auto one = panel(true, false, false, false);
        QCOMPARE(one->acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(one->labelText(QFileDialog::Accept), u"Take"_s);
        QCOMPARE(one->fileMode(), QFileDialog::ExistingFile);
        QVERIFY(one->nameFilters().constFirst().endsWith(u" (*.png)"_s));
        const auto several = panel(true, false, true, false);
        QCOMPARE(several->fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(several->nameFilters().constFirst().endsWith(u" (*.png)"_s));
        QCOMPARE(panel(false, true, false, false)->fileMode(), QFileDialog::Directory);
        QCOMPARE(panel(true, false, false, true)->fileMode(), QFileDialog::Directory);
    }

    void foldersAndFilesAreTakenTogether()
    {
        QTemporaryDir place;
        QVERIFY(QDir(place.path()).mkdir(u"a folder"_s));
        QFile file(place.filePath(QStringLiteral("b \"c\".png")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        base::OpenPanelRequest request;
        request.directories = true;
        request.multiple = true;
        request.directory = place.path();
        request.prompt = u"Take"_s;
        QSettings memory(place.filePath(u"memory.ini"_s), QSettings::IniFormat);
        kit::WidgetPrompts prompts(&memory);
        const auto takeAll = [](QWidget* dialog) {
            auto* rows = dialog->findChild<QListView*>(u"listView"_s);
            QTRY_COMPARE(rows->model()->rowCount(rows->rootIndex()), 2);
            dialog->findChild<QTreeView*>(u"treeView"_s)->setFocus();
            rows->selectAll();
            QPushButton* take = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
            QCOMPARE(take->text(), u"Take"_s);
            dialog->resize(910, 570);
            take->click();
        };
        withModalDialog(takeAll);
        QStringList chosen = prompts.openPanel(request);
        chosen.sort();
        QCOMPARE(chosen, QStringList({place.filePath(u"a folder"_s), file.fileName()}));

        withModalDialog([](QWidget* dialog) {
            QPushButton* take = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
            QTRY_VERIFY(take->isEnabled());
            QTest::keyClick(dialog->findChild<QLineEdit*>(u"fileNameEdit"_s), Qt::Key_Return);
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
        QVERIFY(QDir(place.path()).mkpath(u"deep/a.mrlibrary"_s));
        base::OpenPanelRequest request;
        request.packages = true;
        request.directory = place.path();
        request.suffixes = {u"mrlibrary"_s};
        kit::WidgetPrompts prompts;
        withModalDialog([](QWidget* dialog) {
            auto* rows = dialog->findChild<QTreeView*>(u"treeView"_s);
            for (int level = 0; level < 2; ++level) {
                QTRY_COMPARE(rows->model()->rowCount(rows->rootIndex()), 1);
                Q_EMIT rows->activated(rows->model()->index(0, 0, rows->rootIndex()));
            }
        });
        QCOMPARE(prompts.openPanel(request), QStringList(place.filePath(u"deep/a.mrlibrary"_s)));
    }

    void acceptablePaths_data()
    {
        QTest::addColumn<PathsRow>("row");
        const auto row = [](const char* name, const PathsRow& given) { QTest::newRow(name) << given; };
        row("a package", {true, false, {u"a.mrlibrary"_s}, {u"a.mrlibrary"_s}});
        row("a package, typed with a slash", {true, false, {u"a.mrlibrary/"_s}, {u"a.mrlibrary"_s}});
        row("a package, in capitals", {true, false, {u"B.MRLIBRARY"_s}, {u"B.MRLIBRARY"_s}});
        row("a plain folder is no package", {true, false, {u"plain"_s}, {}});
        row("a file is no package", {true, false, {u"file.mrlibrary"_s}, {}});
        row("a folder when files are asked for",
            {false, false, {u"plain"_s, u"file.png"_s}, {u"file.png"_s}});
        row("repeats",
            {false, true, {u"file.png"_s, u"./file.png"_s, u"plain"_s}, {u"file.png"_s, u"plain"_s}});
    }
    void acceptablePaths()
    {
        QTemporaryDir place;
        const QDir folder(place.path());
        for (const QString& name : {u"a.mrlibrary"_s, u"B.MRLIBRARY"_s, u"plain"_s})
            QVERIFY(folder.mkdir(name));
        test::writeFile(folder.filePath(u"file.mrlibrary"_s));
        test::writeFile(folder.filePath(u"file.png"_s));
        QFETCH(PathsRow, row);
        base::OpenPanelRequest request;
        request.packages = row.packages;
        request.directories = row.directories;
        request.suffixes = {u"mrlibrary"_s};
        const auto absolute = [&place](QStringList paths) {
            return paths.replaceInStrings(QRegularExpression(u"^"_s), place.path() + u'/');
        };
        QCOMPARE(kit::acceptablePaths(absolute(row.chosen), request), absolute(row.kept));
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
        request.name = u"My Library"_s;
        request.suffix = u"mrlibrary"_s;
        withModalDialog([](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->accept(); });
        const std::optional<QString> path = prompts.savePanel(request);
        QVERIFY(path.has_value());
        QCOMPARE(*path, place.filePath(u"My Library.mrlibrary"_s));
    }

    void withSuffix()
    {
        QCOMPARE(kit::withSuffix(u"/a/b.PNG"_s, u"png"_s), u"/a/b.PNG"_s);
        QCOMPARE(kit::withSuffix(u"/a/b.1"_s, u"png"_s), u"/a/b.1.png"_s);
        QCOMPARE(kit::withSuffix(u"/a/b"_s, {}), u"/a/b"_s);
        QCOMPARE(kit::withSuffix({}, u"png"_s), QString());
    }
};

QTEST_MAIN(TestPrompts)
#include "tst_prompts.moc"
