#include "base/Text.h"
#include "shell/HelpAddresses.h"
#include "shell/LaunchOptions.h"
#include "shell/Lifecycle.h"

#include <QtTest>

using namespace mosaro::shell;

Q_DECLARE_METATYPE(mosaro::shell::ShowStep)
Q_DECLARE_METATYPE(mosaro::shell::StartStep)

class LifecycleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reopen_data();
    void reopen();
    void showMosaro_data();
    void showMosaro();
    void start_data();
    void start();
    void arguments_data();
    void arguments();
    void pathsBecomeAbsolute();
    void feedbackNamesTheVersion();
};

void LifecycleTest::reopen_data()
{
    QTest::addColumn<bool>("chooser");
    QTest::addColumn<bool>("window");
    QTest::addColumn<bool>("mini");
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<ShowStep>("step");
    QTest::newRow("chooser goes before all") << true << false << false << false << ShowStep::Nothing;
    QTest::newRow("chooser over a loaded window") << true << true << false << true << ShowStep::Nothing;
    QTest::newRow("normal use") << false << true << false << true << ShowStep::Nothing;
    QTest::newRow("only the mini window") << false << false << true << true << ShowStep::Nothing;
    QTest::newRow("no library in use") << false << false << false << false << ShowStep::OpenLibrary;
    QTest::newRow("hidden with a library") << false << false << false << true << ShowStep::RaiseWindow;
    QTest::newRow("a window without a library") << false << true << false << false << ShowStep::ShowChooser;
    QTest::newRow("mini window without a library")
        << false << false << true << false << ShowStep::ShowChooser;
}

void LifecycleTest::reopen()
{
    QFETCH(bool, chooser);
    QFETCH(bool, window);
    QFETCH(bool, mini);
    QFETCH(bool, loaded);
    QFETCH(ShowStep, step);
    QCOMPARE(reopenStep({chooser, window, mini, loaded}), step);
}

void LifecycleTest::showMosaro_data()
{
    QTest::addColumn<bool>("window");
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<ShowStep>("step");
    QTest::newRow("closed") << false << false << ShowStep::OpenLibrary;
    QTest::newRow("hidden") << false << true << ShowStep::RaiseWindow;
    QTest::newRow("shown") << true << true << ShowStep::Nothing;
    QTest::newRow("shown, nothing loaded") << true << false << ShowStep::Nothing;
}

void LifecycleTest::showMosaro()
{
    QFETCH(bool, window);
    QFETCH(bool, loaded);
    QFETCH(ShowStep, step);
    QCOMPARE(showMosaroStep({false, window, false, loaded}), step);
}

void LifecycleTest::start_data()
{
    QTest::addColumn<bool>("asked");
    QTest::addColumn<QString>("library");
    QTest::addColumn<bool>("held");
    QTest::addColumn<StartStep>("step");
    const QString path = QStringLiteral("/tmp/A.mrlibrary");
    QTest::newRow("plain") << false << QString() << false << StartStep::OpenRememberedLibrary;
    QTest::newRow("named") << false << path << false << StartStep::OpenNamedLibrary;
    QTest::newRow("option") << true << QString() << false << StartStep::ShowChooser;
    QTest::newRow("modifier") << false << QString() << true << StartStep::ShowChooser;
    QTest::newRow("modifier beats the name") << false << path << true << StartStep::ShowChooser;
}

void LifecycleTest::start()
{
    QFETCH(bool, asked);
    QFETCH(QString, library);
    QFETCH(bool, held);
    QFETCH(StartStep, step);
    LaunchOptions options;
    options.chooseLibrary = asked;
    options.library = library;
    QCOMPARE(startStep(options, held), step);
}

void LifecycleTest::arguments_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<bool>("chooser");
    QTest::addColumn<QString>("library");
    QTest::addColumn<QStringList>("imports");
    QTest::newRow("none") << QString() << true << false << QString() << QStringList();
    QTest::newRow("chooser") << QStringLiteral("--choose-library") << true << true << QString()
                             << QStringList();
    QTest::newRow("library") << QStringLiteral("--library /x/A.mrlibrary") << true << false
                             << QStringLiteral("/x/A.mrlibrary") << QStringList();
    QTest::newRow("a package from the file manager")
        << QStringLiteral("/x/A.mrlibrary") << true << false << QString() << QStringList();
    QTest::newRow("snapshot with files")
        << QStringLiteral("--snapshot /x/o.png --import /x/a.png /x/b.png") << true << false << QString()
        << QStringList{QStringLiteral("/x/a.png"), QStringLiteral("/x/b.png")};
    QTest::newRow("import alone") << QStringLiteral("--import /x/a.png") << false << false << QString()
                                  << QStringList();
    QTest::newRow("unknown") << QStringLiteral("--nonsense") << false << false << QString() << QStringList();
    QTest::newRow("value missing") << QStringLiteral("--library") << false << false << QString()
                                   << QStringList();
}

void LifecycleTest::arguments()
{
    QFETCH(QString, line);
    QFETCH(bool, accepted);
    const QStringList arguments =
        QStringList{QStringLiteral("mosaro")} + line.split(u' ', Qt::SkipEmptyParts);
    const auto options = parseLaunchOptions(arguments);
    QCOMPARE(options.ok(), accepted);
    if (!accepted) {
        QVERIFY(!options.reason().isEmpty());
        return;
    }
    QTEST(options.value().chooseLibrary, "chooser");
    QTEST(options.value().library, "library");
    QTEST(options.value().imports, "imports");
}

void LifecycleTest::pathsBecomeAbsolute()
{
    const auto options =
        parseLaunchOptions({QStringLiteral("mosaro"), QStringLiteral("--snapshot"), QStringLiteral("o.png"),
                            QStringLiteral("--import"), QStringLiteral("../a.png")});
    QVERIFY(options.ok());
    QCOMPARE(options.value().snapshot, QDir::currentPath() + QStringLiteral("/o.png"));
    QVERIFY(QDir::isAbsolutePath(options.value().imports.value(0)));
}

void LifecycleTest::feedbackNamesTheVersion()
{
    const QUrl address = helpAddress(HelpTopic::Feedback, QStringLiteral("1.2.3"));
    QCOMPARE(address.scheme(), QStringLiteral("mailto"));
    QVERIFY(address.query(QUrl::FullyDecoded).contains(QStringLiteral("subject=Mosaro 1.2.3")));
    QVERIFY(!address.toEncoded().contains(' '));
}

QTEST_MAIN(LifecycleTest)
#include "tst_lifecycle.moc"
