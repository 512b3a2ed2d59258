#include "DanceEvent.h"
#include "DialogRunner.h"
#include "EventEditor.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using Settings::Key;

// The question for the event under which plays are registered.
class TestCurrentEvent : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init();
    void cleanup();

    void startAsksWhereItIsWanted_data();
    void startAsksWhereItIsWanted();
    void firstRunDoesNotAsk();
    void questionComesOverTheWindow();
    void answerIsTheCurrentEvent();
    void leavingKeepsWhatWas();
    void nextQuestionGoesOnWithTheEvent();
    void lastCategoryIsProposed();
    void categoriesOfTheLibraryAreOffered();
    void playsAreRegisteredUnderIt();
    void closingTheWindowEndsTheQuestion();

private:
    void answerWith(const QString &category, const QString &name, int result);
    static QComboBox *category(const QDialog &editor)
    {
        return editor.findChild<QComboBox *>(QStringLiteral("comboBoxCategory"));
    }
    static QLineEdit *name(const QDialog &editor)
    {
        return editor.findChild<QLineEdit *>(QStringLiteral("lineEditEvent"));
    }

    // What each question showed: category and name.
    QStringList asked;
};

void TestCurrentEvent::init()
{
    prepareWindow();
    asked.clear();
    answerWith(QStringLiteral("Ball"), QStringLiteral("Mai"), QDialog::Accepted);
}

void TestCurrentEvent::cleanup()
{
    dropWindow();
    setDialogRunner({});
    setCurrentDanceEvent({});
}

void TestCurrentEvent::answerWith(const QString &kind, const QString &title, int result)
{
    setDialogRunner([this, kind, title, result](QDialog &editor) {
        asked.append(category(editor)->currentText() + u'/' + name(editor)->text());
        category(editor)->setCurrentText(kind);
        name(editor)->setText(title);
        auto *own = qobject_cast<EventEditor *>(&editor);
        result == QDialog::Accepted ? own->onButtonOK_clicked()
                                    : own->onButtonCloseWindow_clicked();
        return editor.result();
    });
}

void TestCurrentEvent::startAsksWhereItIsWanted_data()
{
    QTest::addColumn<bool>("wanted");
    QTest::newRow("wanted") << true;
    QTest::newRow("not wanted") << false;
}

void TestCurrentEvent::startAsksWhereItIsWanted()
{
    QFETCH(bool, wanted);
    useLibrary();
    Settings::setValue(Key::AutoEvent, wanted);
    start();
    QCOMPARE(asked.size(), wanted ? 1 : 0);
    QCOMPARE(getCurrentDanceEvent() != nullptr, wanted);
    QVERIFY(!window->isQuitRequested());
    QVERIFY(window->centralWidget()->hasFocus());
}

void TestCurrentEvent::firstRunDoesNotAsk()
{
    start();
    QVERIFY(asked.isEmpty());
}

void TestCurrentEvent::questionComesOverTheWindow()
{
    useLibrary();
    Settings::setValue(Key::AutoEvent, true);
    bool windowWasVisible = false;
    setDialogRunner([&](QDialog &editor) {
        windowWasVisible = editor.parentWidget()->isVisible();
        for (const char *hidden : {"dateTimeEdit", "lineEditTempoPercent", "lineEditTempoBpm"})
            if (!editor.findChild<QWidget *>(QLatin1String(hidden))->isHidden())
                asked.append(QLatin1String(hidden));
        return QDialog::Rejected;
    });
    start();
    QVERIFY(windowWasVisible);
    QCOMPARE(asked, QStringList());
}

void TestCurrentEvent::answerIsTheCurrentEvent()
{
    useLibrary();
    start();
    QVERIFY(!getCurrentDanceEvent());
    window->onButtonSetEvent_clicked();
    QCOMPARE(asked.size(), 1);
    QCOMPARE(getCurrentDanceEvent()->getCategory(), QStringLiteral("Ball"));
    QCOMPARE(getCurrentDanceEvent()->getName(), QStringLiteral("Mai"));
}

void TestCurrentEvent::leavingKeepsWhatWas()
{
    useLibrary();
    start();
    answerWith(QStringLiteral("Gala"), QStringLiteral("x"), QDialog::Rejected);
    window->onButtonSetEvent_clicked();
    QVERIFY(!getCurrentDanceEvent());
    const auto event
        = std::make_shared<DanceEvent>(QStringLiteral("Ball"), QStringLiteral("Mai"), QString());
    setCurrentDanceEvent(event);
    window->onButtonSetEvent_clicked();
    QCOMPARE(getCurrentDanceEvent(), event);
    QCOMPARE(event->getCategory(), QStringLiteral("Ball"));
    QCOMPARE(event->getName(), QStringLiteral("Mai"));
}

void TestCurrentEvent::nextQuestionGoesOnWithTheEvent()
{
    useLibrary();
    start();
    window->onButtonSetEvent_clicked();
    const auto event = getCurrentDanceEvent();
    answerWith(QStringLiteral("Gala"), QStringLiteral("Juni"), QDialog::Accepted);
    window->onButtonSetEvent_clicked();
    QCOMPARE(asked.constLast(), QStringLiteral("Ball/Mai"));
    QCOMPARE(getCurrentDanceEvent(), event);
    QCOMPARE(event->getName(), QStringLiteral("Juni"));
}

void TestCurrentEvent::lastCategoryIsProposed()
{
    useLibrary();
    start();
    window->onButtonSetEvent_clicked();
    setCurrentDanceEvent({});
    window->onButtonSetEvent_clicked();
    QCOMPARE(asked, (QStringList{QStringLiteral("/"), QStringLiteral("Ball/")}));
}

void TestCurrentEvent::categoriesOfTheLibraryAreOffered()
{
    useLibrary();
    {
        const Tarvelo stores;
        Song song(music->filePath(QStringLiteral("1.mp3")), false);
        for (const char *kind : {"Training", "Workshop", "Training"})
            song.getDanceEvents().append(
                std::make_shared<DanceEvent>(QLatin1String(kind), QString(), QString()));
        QVERIFY(song.save());
    }
    start();
    QStringList offered;
    setDialogRunner([&](QDialog &editor) {
        for (int i = 0; i < category(editor)->count(); ++i)
            offered.append(category(editor)->itemText(i));
        return QDialog::Rejected;
    });
    window->onButtonSetEvent_clicked();
    QCOMPARE(offered, (QStringList{QStringLiteral("Training"), QStringLiteral("Workshop")}));
}

void TestCurrentEvent::playsAreRegisteredUnderIt()
{
    useLibrary();
    start();
    const SongPtr song
        = tarvelo->getSongManager()->getSong(music->filePath(QStringLiteral("1.mp3")));
    song->getDanceEvents().addPlay(0);
    window->onButtonSetEvent_clicked();
    song->getDanceEvents().addPlay(5);
    const DanceEventList &events = song->getDanceEvents();
    QCOMPARE(events.at(0)->getCategory() + events.at(0)->getName(), QString());
    QCOMPARE(events.at(1)->getCategory(), QStringLiteral("Ball"));
    QCOMPARE(events.at(1)->getName(), QStringLiteral("Mai"));
    QCOMPARE(events.at(1)->getTempo(), QStringLiteral("5"));
    QVERIFY(events.at(1) != getCurrentDanceEvent());
}

// Nobody would see it any more, and the program would never end.
void TestCurrentEvent::closingTheWindowEndsTheQuestion()
{
    useLibrary();
    Settings::setValue(Key::AutoEvent, true);
    setDialogRunner({});
    bool closed = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        const QWidget *question = QApplication::activeModalWidget();
        if (question && question->inherits("EventEditor") && !closed)
            closed = question->parentWidget()->close();
    });
    timer.start(10);
    tarvelo = std::make_unique<Tarvelo>();
    window = std::make_unique<MainWindow>(tarvelo.get());
    QVERIFY(closed);
    QVERIFY(window->isQuitRequested());
    QVERIFY(!getCurrentDanceEvent());
    QCOMPARE(Settings::value(Key::AutoEvent).toBool(), true);
}

TARVELO_TEST_MAIN(TestCurrentEvent, QApplication)
#include "tst_CurrentEvent.moc"
