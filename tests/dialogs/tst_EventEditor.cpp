#include "DanceEvent.h"
#include "DialogRunner.h"
#include "EventEditor.h"
#include "EventRules.h"
#include "Settings.h"
#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

using Settings::Key;

namespace {

const QStringList usual{QStringLiteral("Convention"), QStringLiteral("Training"),
                        QStringLiteral("Special"), QStringLiteral("Vorbereitung")};

} // namespace

// The editor of one event, worked by its keys.
class TestEventEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void bpmOfATempo_data();
    void bpmOfATempo();
    void categoriesOfSongs();

    void showsWhatIsAskedFor_data();
    void showsWhatIsAskedFor();
    void fieldsShowTheEvent();
    void bpmFollowsTheTempo();
    void bpmNeedsBeatsAndATempo_data();
    void bpmNeedsBeatsAndATempo();
    void offersCategories_data();
    void offersCategories();

    void okWritesTheEvent();
    void okRemembersANewCategory();
    void dateStaysUnlessEdited_data();
    void dateStaysUnlessEdited();
    void leavingChangesNothing_data();
    void leavingChangesNothing();
    void returnMeansOk_data();
    void returnMeansOk();
    void categoryHoldsNoComma();
    void foreignCategoryWithACommaStays();
    void categoryKeepsItsCase_data();
    void categoryKeepsItsCase();
    void tempoHoldsNoTab();

    void keepsItsRectangle();
    void staysWithinItsLimits();
    void damagedGeometryIsIgnored();
    void longCategoriesMakeNoWideWindow();
    void everyFieldHasAName();
    void tabGoesFromTopToBottom();
    void textsFitAtAnyFontSize_data();
    void textsFitAtAnyFontSize();
    void runnerGetsTheDialog();

private:
    void open(bool showDate = true, const QStringList &categories = {}, bool showTempo = true,
              int bpm = 120);
    template <typename Widget> Widget *find(const char *name) const
    {
        return editor->findChild<Widget *>(QLatin1String(name));
    }
    QComboBox *category() const { return find<QComboBox>("comboBoxCategory"); }
    QLineEdit *tempo() const { return find<QLineEdit>("lineEditTempoPercent"); }
    QLineEdit *bpm() const { return find<QLineEdit>("lineEditTempoBpm"); }
    void clickOk() const { find<QPushButton>("buttonOK")->click(); }
    static void retype(QWidget *field, const QString &text);

    std::shared_ptr<DanceEvent> event;
    std::unique_ptr<EventEditor> editor;
};

void TestEventEditor::initTestCase()
{
    // A zone that has an hour twice in autumn.
    qputenv("TZ", "Europe/Berlin");
}

void TestEventEditor::init()
{
    Settings::factoryReset();
    event = std::make_shared<DanceEvent>(
        QStringLiteral("Training"), QStringLiteral("Dienstag"), QStringLiteral("5"),
        QDateTime::fromString(QStringLiteral("2024-03-05T19:30:15"), Qt::ISODate));
}

void TestEventEditor::cleanup()
{
    editor.reset();
    qApp->setStyleSheet({});
    setDialogRunner({});
}

void TestEventEditor::open(bool showDate, const QStringList &categories, bool showTempo, int beats)
{
    editor = std::make_unique<EventEditor>(nullptr, event, showDate, categories, showTempo, beats);
    editor->show();
    QVERIFY(QTest::qWaitForWindowActive(editor.get()));
}

void TestEventEditor::retype(QWidget *field, const QString &text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
    // Else a completion may stand behind it.
    QTest::keyClick(field, Qt::Key_Delete);
}

void TestEventEditor::bpmOfATempo_data()
{
    QTest::addColumn<QString>("tempo");
    QTest::addColumn<int>("bpm");
    QTest::addColumn<QString>("shown");
    QTest::newRow("faster") << "5" << 120 << "126";
    QTest::newRow("signed") << "+5" << 120 << "126";
    QTest::newRow("slower") << "-7" << 120 << "111";
    QTest::newRow("a fraction is 0") << "-3.5" << 120 << "120";
    QTest::newRow("no number is 0") << "fast" << 120 << "120";
    QTest::newRow("cut") << "1" << 99 << "99";
    QTest::newRow("cut towards zero") << "-101" << 199 << "-1";
    QTest::newRow("one beat") << "0" << 1 << "1";
    QTest::newRow("no beats") << "5" << 0 << "";
    QTest::newRow("below") << "5" << -1 << "";
    QTest::newRow("no tempo") << "" << 120 << "";
    QTest::newRow("large") << "2147483647" << 2147483647 << "46116862288807853";
}

void TestEventEditor::bpmOfATempo()
{
    QFETCH(QString, tempo);
    QFETCH(int, bpm);
    QTEST(eventTempoBpm(tempo, bpm), "shown");
}

void TestEventEditor::categoriesOfSongs()
{
    QHash<QString, SongPtr> songs;
    const auto add = [&songs](const QString &name, const QStringList &categories) {
        const SongPtr song(new Song(name, false));
        for (const QString &category : categories)
            song->getDanceEvents().append(
                std::make_shared<DanceEvent>(category, QString(), QString()));
        songs.insert(name, song);
    };
    QVERIFY(eventCategories(songs).isEmpty());
    add(QStringLiteral("/a.mp3"), {QStringLiteral("Training"), QString(), QStringLiteral("Ball")});
    add(QStringLiteral("/b.mp3"), {});
    add(QStringLiteral("/c.mp3"), {QStringLiteral("training"), QStringLiteral("Training")});
    QCOMPARE(eventCategories(songs),
             (QStringList{QStringLiteral("Ball"), QStringLiteral("Training"),
                          QStringLiteral("training")}));
}

void TestEventEditor::showsWhatIsAskedFor_data()
{
    QTest::addColumn<bool>("date");
    QTest::addColumn<bool>("tempo");
    QTest::newRow("current event") << false << false;
    QTest::newRow("one event") << true << true;
    QTest::newRow("date") << true << false;
    QTest::newRow("tempo") << false << true;
}

void TestEventEditor::showsWhatIsAskedFor()
{
    QFETCH(bool, date);
    QFETCH(bool, tempo);
    open(date, {}, tempo);
    QCOMPARE(editor->windowTitle(), QStringLiteral("Event Editor"));
    QVERIFY(editor->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    for (const char *name : {"labelTimeEdit", "dateTimeEdit"})
        QCOMPARE(find<QWidget>(name)->isVisible(), date);
    for (const char *name :
         {"labelTempo", "lineEditTempoPercent", "labelPercent", "lineEditTempoBpm", "labelBpm"})
        QCOMPARE(find<QWidget>(name)->isVisible(), tempo);
    for (const char *name : {"comboBoxCategory", "lineEditEvent", "buttonOK", "buttonCloseWindow"})
        QVERIFY(find<QWidget>(name)->isVisible());
    QCOMPARE(find<QLabel>("labelTimeEdit")->text(), QStringLiteral("Datum & Uhrzeit:"));
    QCOMPARE(find<QPushButton>("buttonCloseWindow")->text(), QStringLiteral("Abbrechen"));
}

void TestEventEditor::fieldsShowTheEvent()
{
    open();
    QCOMPARE(find<QDateTimeEdit>("dateTimeEdit")->text(), QStringLiteral("05.03.2024 19:30:15"));
    QCOMPARE(category()->currentText(), QStringLiteral("Training"));
    QCOMPARE(find<QLineEdit>("lineEditEvent")->text(), QStringLiteral("Dienstag"));
    QCOMPARE(tempo()->text(), QStringLiteral("5"));
    QCOMPARE(bpm()->text(), QStringLiteral("126"));
}

void TestEventEditor::bpmFollowsTheTempo()
{
    open();
    retype(tempo(), QStringLiteral("-7"));
    QCOMPARE(bpm()->text(), QStringLiteral("111"));
    QTest::keyClick(tempo(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(tempo(), Qt::Key_Delete);
    QCOMPARE(bpm()->text(), QString());
    QVERIFY(bpm()->isReadOnly());
}

void TestEventEditor::bpmNeedsBeatsAndATempo_data()
{
    QTest::addColumn<QString>("tempoText");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("beats");
    QTest::newRow("no beats") << "5" << true << 0;
    QTest::newRow("no tempo") << "" << true << 120;
    QTest::newRow("hidden") << "5" << false << 120;
}

void TestEventEditor::bpmNeedsBeatsAndATempo()
{
    QFETCH(QString, tempoText);
    QFETCH(bool, shown);
    QFETCH(int, beats);
    event->setTempo(tempoText);
    open(true, {}, shown, beats);
    QCOMPARE(bpm()->text(), QString());
}

void TestEventEditor::offersCategories_data()
{
    QTest::addColumn<QStringList>("given");
    QTest::addColumn<QStringList>("offered");
    const QString training = QStringLiteral("Training");
    const QString small = QStringLiteral("training");
    const QString ball = QStringLiteral("Ball");
    QTest::newRow("none") << QStringList() << usual;
    QTest::newRow("others") << QStringList{ball} << QStringList{ball} + usual;
    QTest::newRow("training") << QStringList{ball, training} << QStringList{ball, training};
    QTest::newRow("another case") << QStringList{small} << QStringList{small} + usual;
    QTest::newRow("one of the usual") << usual.mid(0, 1) << usual.mid(0, 1) + usual;
}

void TestEventEditor::offersCategories()
{
    QFETCH(QStringList, given);
    open(true, given);
    QStringList offered;
    for (int i = 0; i < category()->count(); ++i)
        offered.append(category()->itemText(i));
    QTEST(offered, "offered");
    // Whatever is offered, the event's own is chosen.
    QCOMPARE(category()->currentText(), QStringLiteral("Training"));
}

void TestEventEditor::okWritesTheEvent()
{
    open();
    retype(category(), QStringLiteral("Ball"));
    retype(find<QLineEdit>("lineEditEvent"), QStringLiteral("Spring, 2024"));
    retype(tempo(), QStringLiteral("-3.5"));
    auto *date = find<QDateTimeEdit>("dateTimeEdit");
    date->setSelectedSection(QDateTimeEdit::DaySection);
    date->setFocus();
    QTest::keyClick(date, Qt::Key_Up);
    clickOk();
    QCOMPARE(editor->result(), static_cast<int>(QDialog::Accepted));
    QVERIFY(!editor->isVisible());
    QCOMPARE(event->getCategory(), QStringLiteral("Ball"));
    QCOMPARE(event->getName(), QStringLiteral("Spring, 2024"));
    QCOMPARE(event->getTempo(), QStringLiteral("-3.5"));
    QCOMPARE(event->getDate().toString(Qt::ISODate), QStringLiteral("2024-03-06T19:30:15"));
}

void TestEventEditor::okRemembersANewCategory()
{
    open();
    clickOk();
    QVERIFY(!Settings::contains(Key::LastDanceEventCategory));
    open();
    retype(category(), QStringLiteral("Ball"));
    QVERIFY(!Settings::contains(Key::LastDanceEventCategory));
    clickOk();
    QCOMPARE(Settings::value(Key::LastDanceEventCategory).toString(), QStringLiteral("Ball"));
    QCOMPARE(DanceEvent::createDefault()->getCategory(), QStringLiteral("Ball"));
}

void TestEventEditor::dateStaysUnlessEdited_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::newRow("usual") << QDateTime::fromSecsSinceEpoch(1709663415);
    QTest::newRow("with a fraction") << QDateTime::fromMSecsSinceEpoch(1709663415789);
    // 02:30 comes twice in that night.
    QTest::newRow("the hour before the clock goes back")
        << QDateTime::fromSecsSinceEpoch(1698539400);
    QTest::newRow("the hour after it") << QDateTime::fromSecsSinceEpoch(1698543000);
    QTest::newRow("epoch") << QDateTime::fromSecsSinceEpoch(0);
    QTest::newRow("what no field shows") << QDateTime::fromSecsSinceEpoch(-99999999999);
    QTest::newRow("none") << QDateTime();
}

void TestEventEditor::dateStaysUnlessEdited()
{
    QFETCH(QDateTime, date);
    for (const bool shown : {true, false}) {
        event->setDate(date);
        open(shown);
        clickOk();
        QCOMPARE(event->getDate(), date);
    }
}

void TestEventEditor::leavingChangesNothing_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("escape") << 1;
    QTest::newRow("the desktop's button") << 2;
}

void TestEventEditor::leavingChangesNothing()
{
    QFETCH(int, way);
    const DanceEvent before = *event;
    open();
    retype(category(), QStringLiteral("Ball"));
    retype(find<QLineEdit>("lineEditEvent"), QStringLiteral("x"));
    retype(tempo(), QStringLiteral("9"));
    find<QDateTimeEdit>("dateTimeEdit")->setDateTime(QDateTime::currentDateTime());
    if (way == 0)
        find<QPushButton>("buttonCloseWindow")->click();
    else if (way == 1)
        QTest::keyClick(tempo(), Qt::Key_Escape);
    else
        editor->close();
    QCOMPARE(editor->result(), static_cast<int>(QDialog::Rejected));
    QVERIFY(!editor->isVisible());
    QVERIFY(*event == before);
    QVERIFY(!Settings::contains(Key::LastDanceEventCategory));
}

void TestEventEditor::returnMeansOk_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("kind");
    for (const char *field :
         {"dateTimeEdit", "comboBoxCategory", "lineEditEvent", "lineEditTempoPercent"})
        QTest::newRow(field) << QByteArray(field) << "Training";
    QTest::newRow("without a category") << QByteArray("comboBoxCategory") << "";
}

void TestEventEditor::returnMeansOk()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, kind);
    event->setCategory(kind);
    open();
    find<QWidget>(field.constData())->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(editor->result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(event->getCategory(), kind);
}

void TestEventEditor::categoryHoldsNoComma()
{
    open();
    retype(category(), QStringLiteral("Ball, Gala"));
    QCOMPARE(category()->currentText(), QStringLiteral("Ball Gala"));
    QGuiApplication::clipboard()->setText(QStringLiteral("a,b"));
    QTest::keyClick(category(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(category()->currentText(), QStringLiteral("Ball Gala"));
    clickOk();
    QCOMPARE(event->getCategory(), QStringLiteral("Ball Gala"));
}

void TestEventEditor::foreignCategoryWithACommaStays()
{
    event->setCategory(QStringLiteral("Ball, Gala"));
    open();
    QCOMPARE(category()->currentText(), QStringLiteral("Ball, Gala"));
    clickOk();
    QCOMPARE(event->getCategory(), QStringLiteral("Ball, Gala"));
}

void TestEventEditor::categoryKeepsItsCase_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("known") << "";
    QTest::newRow("typed") << "tRAINING";
}

// Leaving the field or pressing Return takes no other entry for it.
void TestEventEditor::categoryKeepsItsCase()
{
    QFETCH(QString, typed);
    event->setCategory(QStringLiteral("training"));
    open(true, {QStringLiteral("TRAINING"), QStringLiteral("Training")});
    if (!typed.isEmpty())
        retype(category(), typed);
    category()->setFocus();
    QTest::keyClick(category(), Qt::Key_Tab);
    category()->setFocus();
    QTest::keyClick(category(), Qt::Key_Return);
    QCOMPARE(event->getCategory(), typed.isEmpty() ? QStringLiteral("training") : typed);
}

void TestEventEditor::tempoHoldsNoTab()
{
    open();
    tempo()->setFocus();
    tempo()->selectAll();
    QGuiApplication::clipboard()->setText(QStringLiteral("5\t6"));
    QTest::keyClick(tempo(), Qt::Key_V, Qt::ControlModifier);
    clickOk();
    QVERIFY(!event->getTempo().contains(u'\t'));
}

void TestEventEditor::keepsItsRectangle()
{
    open();
    editor->setGeometry(60, 70, 480, 350);
    editor.reset();
    QVERIFY(Settings::contains(Key::EventEditorGeometry));
    // It is on the disk, too.
    QFile stored(Settings::instance()->fileName());
    QVERIFY(stored.open(QIODevice::ReadOnly));
    QVERIFY(stored.readAll().contains("eventEditorGeometry"));
    open(false, {}, false);
    QCOMPARE(editor->geometry(), QRect(60, 70, 480, 350));
}

void TestEventEditor::staysWithinItsLimits()
{
    open();
    QCOMPARE(editor->maximumSize(), QSize(600, 600));
    editor->resize(2000, 1000);
    QCOMPARE(editor->size(), QSize(600, 600));
}

void TestEventEditor::damagedGeometryIsIgnored()
{
    Settings::setValue(Key::EventEditorGeometry, QByteArray("\x01\xd9\xd0\xcb garbage"));
    open();
    QVERIFY(editor->width() >= editor->minimumSizeHint().width());
}

void TestEventEditor::longCategoriesMakeNoWideWindow()
{
    open();
    const QSize usualSize = editor->sizeHint();
    open(true, {QString(300, u'W')});
    QCOMPARE(editor->sizeHint(), usualSize);
}

void TestEventEditor::everyFieldHasAName()
{
    open();
    for (const char *name : {"dateTimeEdit", "comboBoxCategory", "lineEditEvent",
                             "lineEditTempoPercent", "lineEditTempoBpm"})
        QVERIFY2(!find<QWidget>(name)->accessibleName().isEmpty(), name);
    QCOMPARE(category()->accessibleName(), QStringLiteral("Kategorie"));
}

void TestEventEditor::tabGoesFromTopToBottom()
{
    open();
    const auto *date = find<QDateTimeEdit>("dateTimeEdit");
    QCOMPARE(QApplication::focusWidget(), date);
    QStringList order;
    for (int i = 0; i < 40 && order.value(order.size() - 1) != QStringLiteral("buttonOK"); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QString name = QApplication::focusWidget()->objectName();
        // The date is one field of several sections.
        if (name != date->objectName())
            order.append(name);
    }
    QCOMPARE(order,
             (QStringList{QStringLiteral("comboBoxCategory"), QStringLiteral("lineEditEvent"),
                          QStringLiteral("lineEditTempoPercent"), QStringLiteral("buttonOK")}));
}

void TestEventEditor::textsFitAtAnyFontSize_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<int>("points");
    for (const QString &theme : {QStringLiteral("Dark Night"), QStringLiteral("Bright Morning")})
        for (const int points : {8, 15, 20, 30, 50, 70})
            QTest::addRow("%s %d", qPrintable(theme), points) << theme << points;
}

void TestEventEditor::textsFitAtAnyFontSize()
{
    QFETCH(QString, theme);
    QFETCH(int, points);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(themeNamed(theme)), {.fontSize = points}));
    open();
    QVERIFY(editor->width() <= 600 && editor->height() <= 600);
    // For a picture of each: TARVELO_PICTURES names a directory.
    if (const QString pictures = qEnvironmentVariable("TARVELO_PICTURES"); !pictures.isEmpty())
        QVERIFY(editor->grab().save(
            QStringLiteral("%1/event-%2-%3.png").arg(pictures, theme.left(4)).arg(points)));
    QCOMPARE(editor->font().pointSize() < points, points > 20);
    // Its arrow is no larger than its text.
    QVERIFY(category()->height() <= find<QLineEdit>("lineEditEvent")->height() * 5 / 4);
    for (const QWidget *widget : editor->findChildren<QWidget *>()) {
        const bool isText = qobject_cast<const QLabel *>(widget)
                            || qobject_cast<const QPushButton *>(widget)
                            || qobject_cast<const QDateTimeEdit *>(widget);
        if (!isText || !widget->isVisible())
            continue;
        QVERIFY2(widget->width() >= widget->sizeHint().width(), qPrintable(widget->objectName()));
        QVERIFY2(widget->height() >= widget->sizeHint().height(), qPrintable(widget->objectName()));
    }
}

void TestEventEditor::runnerGetsTheDialog()
{
    EventEditor dialog(nullptr, event, false, {}, false, 0);
    const QDialog *got = nullptr;
    setDialogRunner([&got](QDialog &shown) {
        got = &shown;
        return 7;
    });
    QCOMPARE(runDialog(dialog), 7);
    QCOMPARE(got, static_cast<QDialog *>(&dialog));
}

TARVELO_TEST_MAIN(TestEventEditor, QApplication)
#include "tst_EventEditor.moc"
