#include "base/Text.h"
#include "shell/LaunchOptions.h"
#include "shell/Lifecycle.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro::shell;

class LifecycleTest : public QObject {
    Q_OBJECT

    static auto parse(const char* line)
    {
        return parseLaunchOptions(QString::fromLatin1(line).split(u' ', Qt::SkipEmptyParts));
    }

private Q_SLOTS:
    void showing()
    {
        using enum ShowStep;
        const struct {
            const char* name;
            Standing standing; // chooser, window, mini window, loaded
            ShowStep step;
        } rows[] = {
            {"chooser goes before all", {true, false, false, false}, Nothing},
            {"chooser over a loaded window", {true, true, false, true}, Nothing},
            {"normal use", {false, true, false, true}, Nothing},
            {"only the mini window", {false, false, true, true}, Nothing},
            {"no library in use", {false, false, false, false}, OpenLibrary},
            {"hidden with a library", {false, false, false, true}, RaiseWindow},
            {"a window without a library", {false, true, false, false}, ShowChooser},
            {"mini window without a library", {false, false, true, false}, ShowChooser},
        };
        for (const auto& [name, standing, step] : rows)
            QVERIFY2(reopenStep(standing) == step, name);
        QCOMPARE(showMosaroStep({}), OpenLibrary);
        QCOMPARE(showMosaroStep({.loaded = true}), RaiseWindow);
        QCOMPARE(showMosaroStep({.windowVisible = true, .loaded = true}), Nothing);
        QCOMPARE(showMosaroStep({.windowVisible = true}), Nothing);
    }

    void start()
    {
        const QString path = u"/tmp/A.mrlibrary"_s;
        QCOMPARE(startStep({}, false), StartStep::OpenRememberedLibrary);
        QCOMPARE(startStep({.library = path}, false), StartStep::OpenNamedLibrary);
        QCOMPARE(startStep({.chooseLibrary = true}, false), StartStep::ShowChooser);
        QCOMPARE(startStep({}, true), StartStep::ShowChooser);
        QCOMPARE(startStep({.library = path}, true), StartStep::ShowChooser);
    }

    void arguments()
    {
        for (const char* line : {"mosaro", "mosaro /x/A.mrlibrary"}) { // a package from the file manager
            const auto plain = parse(line);
            QVERIFY(plain.ok() && !plain.value().chooseLibrary);
            QCOMPARE(plain.value().library, QString());
            QCOMPARE(plain.value().imports, QStringList());
        }
        const auto named = parse("mosaro --choose-library --library /x/A.mrlibrary");
        QVERIFY(named.ok() && named.value().chooseLibrary);
        QCOMPARE(named.value().library, u"/x/A.mrlibrary"_s);
        const auto snapshot = parse("mosaro --snapshot o.png --import /x/a.png ../b.png");
        QVERIFY(snapshot.ok());
        QCOMPARE(snapshot.value().snapshot, QDir::currentPath() + u"/o.png"_s);
        QCOMPARE(snapshot.value().imports,
                 (QStringList{u"/x/a.png"_s, QFileInfo(u"../b.png"_s).absoluteFilePath()}));
        QVERIFY(!parse("mosaro --library").ok() && !parse("mosaro --library").reason().isEmpty());
    }
};

QTEST_MAIN(LifecycleTest)
#include "tst_lifecycle.moc"
