#include "FileTools.h"
#include "MessageBoxes.h"
#include "TestMain.h"
#include "ThemeContext.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTextDocumentFragment>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

// What a box looked like while it stood there.
struct Seen
{
    QString title;
    QString text;
    Qt::TextFormat format;
    QPixmap picture;
    QPixmap windowIcon;
    QStringList buttons;
    QString defaultButton;
    QString styleSheet;
    bool isModal;
};

Seen describe(const QMessageBox &box)
{
    Seen seen{box.windowTitle(),
              box.text(),
              box.textFormat(),
              box.iconPixmap(),
              box.windowIcon().pixmap(100),
              {},
              box.defaultButton() ? box.defaultButton()->text() : QString(),
              box.styleSheet(),
              box.isModal()};
    for (const QMessageBox::StandardButton kind :
         {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel, QMessageBox::Ok}) {
        if (const QAbstractButton *button = box.button(kind))
            seen.buttons.append(button->text());
    }
    return seen;
}

Seen seenBox(const std::function<void()> &show,
             QMessageBox::StandardButton answer = QMessageBox::NoButton)
{
    Seen seen;
    setBoxRunner([&](QMessageBox &box) {
        seen = describe(box);
        return answer;
    });
    show();
    setBoxRunner({});
    return seen;
}

// Does something to the real box as soon as it is there.
template <typename Deed> void whenABoxStands(Deed deed)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, deed] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        timer->stop();
        timer->deleteLater();
        QVERIFY(QTest::qWaitForWindowActive(box));
        deed(box);
    });
    timer->start(0);
}

// Another language: every text in brackets.
class Brackets : public QTranslator
{
public:
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        const bool isOurs = qstrcmp(context, "MessageBoxes") == 0;
        return isOurs ? u'[' + QString::fromUtf8(text) + u']' : QString();
    }
    bool isEmpty() const override { return false; }
};

enum Kind { Error, Info, YesNoCancel, YesNo, WriteProtected, NotImplemented };

void showKind(int kind, const QString &text)
{
    const std::function<void()> boxes[] = {
        [&] { showError(text); }, [&] { showInfo(text); }, [&] { askYesNoCancel(text); },
        [&] { askYesNo(text); },  showWriteProtected,      showNotImplemented,
    };
    boxes[kind]();
}

} // namespace

class TestMessageBoxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyBoxHasItsPlace_data();
    void everyBoxHasItsPlace();
    void fixedTexts();
    void pictureIsScaled();
    void pictureIsSharpOnADenseScreen();
    void withoutAPictureThereIsNone();
    void theLeastWidthIsSet();
    void textsFollowTheLanguage();
    void namesAreShownAsTheyAre_data();
    void namesAreShownAsTheyAre();
    void aLongNameIsWrapped();
    void answersAreHandedOn_data();
    void answersAreHandedOn();
    void keysAnswer_data();
    void keysAnswer();
    void aScreenReaderHearsTitleAndText();
    void aBoxIsCentered_data();
    void aBoxIsCentered();
    void withoutAWindowTheBoxStays();

private:
    QTemporaryDir pictures;
};

// Each picture has a colour of its own and is twice as wide as it is high.
void TestMessageBoxes::init()
{
    // The offscreen platform says so of every window.
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support propagate)"_qs));
    const QPair<const char *, QColor> colours[]
        = {{"Error", Qt::red}, {"Info", Qt::blue}, {"Help", Qt::green}, {"Frownie", Qt::yellow}};
    for (const auto &[name, colour] : colours) {
        QPixmap picture(100, 50);
        picture.fill(colour);
        QVERIFY(picture.save(pictures.filePath(QLatin1String(name) + u".png"_qs)));
    }
    setThemeContext({40, 40}, pictures.path());
}

void TestMessageBoxes::cleanup()
{
    setBoxRunner({});
}

void TestMessageBoxes::everyBoxHasItsPlace_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<QString>("defaultButton");
    const auto add = [](Kind kind, const QString &title, const QColor &colour,
                        const QStringList &buttons, const QString &defaultButton) {
        QTest::addRow("%d: %s", kind, qPrintable(title))
            << int{kind} << title << colour << buttons << defaultButton;
    };
    const QStringList ok{u"OK"_qs};
    add(Error, u"Fehler ..."_qs, Qt::red, ok, u"OK"_qs);
    add(Info, u"Information ..."_qs, Qt::blue, ok, u"OK"_qs);
    add(YesNoCancel, u"Frage ..."_qs, Qt::green, {u"Ja"_qs, u"Nein"_qs, u"Abbruch"_qs}, u"Ja"_qs);
    add(YesNo, u"Frage ..."_qs, Qt::green, {u"Ja"_qs, u"Nein"_qs}, u"Nein"_qs);
    add(WriteProtected, u"Problem ..."_qs, Qt::red, ok, u"OK"_qs);
    add(NotImplemented, u"Sorry ..."_qs, Qt::yellow, ok, u"OK"_qs);
}

void TestMessageBoxes::everyBoxHasItsPlace()
{
    QFETCH(int, kind);
    QFETCH(QColor, colour);
    const Seen seen = seenBox([kind] { showKind(kind, u"<p>What?</p>"_qs); });
    QTEST(seen.title, "title");
    QTEST(seen.buttons, "buttons");
    QTEST(seen.defaultButton, "defaultButton");
    QCOMPARE(seen.picture.toImage().pixelColor(1, 1), colour);
    QCOMPARE(seen.windowIcon.toImage().pixelColor(1, 1), colour);
    QCOMPARE(seen.format, Qt::RichText);
    QVERIFY(seen.isModal);
    QCOMPARE(seen.styleSheet, QString());
    if (kind < WriteProtected)
        QCOMPARE(seen.text, u"<p>What?</p>"_qs);
}

void TestMessageBoxes::fixedTexts()
{
    QCOMPARE(
        seenBox(showWriteProtected).text,
        u"Diese Datei ist schreibgeschützt, daher können keine Änderungen vorgenommen werden."_qs);
    QCOMPARE(seenBox(showNotImplemented).text,
             u"Diese Funktion steht leider noch nicht zur Verfügung."_qs);
}

void TestMessageBoxes::pictureIsScaled()
{
    const Seen seen = seenBox([] { showError(u"x"_qs); });
    QCOMPARE(seen.picture.deviceIndependentSize(), QSizeF(40, 20));
    QCOMPARE(seen.picture.size(), QSize(40, 20) * qApp->devicePixelRatio());
    setThemeContext({200, 60}, pictures.path());
    QCOMPARE(seenBox([] { showError(u"x"_qs); }).picture.deviceIndependentSize(), QSizeF(120, 60));
}

void TestMessageBoxes::pictureIsSharpOnADenseScreen()
{
    QProcess dense;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_SCALE_FACTOR"_qs, u"2"_qs);
    dense.setProcessEnvironment(environment);
    dense.start(QCoreApplication::applicationFilePath(), {u"pictureIsScaled"_qs});
    QVERIFY(dense.waitForFinished());
    QVERIFY2(dense.exitCode() == 0, dense.readAllStandardOutput().constData());
}

void TestMessageBoxes::withoutAPictureThereIsNone()
{
    setThemeContext({40, 40}, u":/No_Theme"_qs);
    for (int kind = Error; kind <= NotImplemented; ++kind) {
        const Seen seen = seenBox([kind] { showKind(kind, u"x"_qs); });
        QVERIFY(seen.picture.isNull());
        QVERIFY(!seen.title.isEmpty());
    }
}

void TestMessageBoxes::theLeastWidthIsSet()
{
    QCOMPARE(seenBox([] { showInfo(u"x"_qs, 640); }).styleSheet,
             u"QLabel#qt_msgbox_label{min-width: 640px; text-align: left;}"_qs);
    int width = 0;
    whenABoxStands([&width](QMessageBox *box) {
        width = box->findChild<QLabel *>(u"qt_msgbox_label"_qs)->width();
        box->close();
    });
    showInfo(u"x"_qs, 640);
    QVERIFY(width >= 640);
}

void TestMessageBoxes::textsFollowTheLanguage()
{
    Brackets brackets;
    QVERIFY(QCoreApplication::installTranslator(&brackets));
    const Seen question = seenBox([] { askYesNoCancel(u"x"_qs); });
    QCOMPARE(question.title, u"[Frage ...]"_qs);
    QCOMPARE(question.buttons, QStringList({u"[Ja]"_qs, u"[Nein]"_qs, u"[Abbruch]"_qs}));
    QCOMPARE(seenBox([] { askYesNo(u"x"_qs); }).defaultButton, u"[Nein]"_qs);
    QCOMPARE(seenBox(showWriteProtected).title, u"[Problem ...]"_qs);
    QVERIFY(seenBox(showWriteProtected).text.startsWith(u'['));
    QVERIFY(seenBox(showNotImplemented).text.startsWith(u'['));
    QVERIFY(QCoreApplication::removeTranslator(&brackets));
    QCOMPARE(seenBox([] { askYesNo(u"x"_qs); }).defaultButton, u"Nein"_qs);
}

void TestMessageBoxes::namesAreShownAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("like a tag") << u"/music/I <b>love</b> it.mp3"_qs;
    QTest::newRow("like an entity") << u"/music/Rock &amp; Roll &lt;.mp3"_qs;
    QTest::newRow("like the end of a text") << u"/music/</p></body>.mp3"_qs;
    QTest::newRow("like a link") << u"/music/<a href=\"x\">y.mp3"_qs;
    QTest::newRow("plain") << u"/music/Füße & Co #1 100%.mp3"_qs;
}

void TestMessageBoxes::namesAreShownAsTheyAre()
{
    QFETCH(QString, name);
    QString shown;
    whenABoxStands([&shown](QMessageBox *box) {
        const auto *label = box->findChild<QLabel *>(u"qt_msgbox_label"_qs);
        shown = QTextDocumentFragment::fromHtml(label->text()).toPlainText();
        box->close();
    });
    showError(u"Die Datei<br>%1<br>fehlt."_qs.arg(fileNameAsHtml(name)));
    QCOMPARE(shown, u"Die Datei\n%1\nfehlt."_qs.arg(name));
}

void TestMessageBoxes::aLongNameIsWrapped()
{
    int wanted = 0;
    int given = 0;
    whenABoxStands([&](QMessageBox *box) {
        const auto *label = box->findChild<QLabel *>(u"qt_msgbox_label"_qs);
        wanted = label->minimumSizeHint().width();
        given = label->width();
        box->close();
    });
    showError(u"Die Datei<br>%1<br>fehlt."_qs.arg(fileNameAsHtml(QString(250, u'M'))));
    QVERIFY2(wanted <= given, qPrintable(u"%1 into %2"_qs.arg(wanted).arg(given)));
}

void TestMessageBoxes::answersAreHandedOn_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << QMessageBox::Yes << true;
    QTest::newRow("no") << QMessageBox::No << false;
    QTest::newRow("cancel") << QMessageBox::Cancel << false;
    QTest::newRow("none") << QMessageBox::NoButton << false;
}

void TestMessageBoxes::answersAreHandedOn()
{
    QFETCH(QMessageBox::StandardButton, button);
    setBoxRunner([button](QMessageBox &) { return button; });
    QCOMPARE(askYesNoCancel(u"x"_qs), button);
    QTEST(askYesNo(u"x"_qs), "yes");
}

void TestMessageBoxes::keysAnswer_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QMessageBox::StandardButton>("ofThree");
    QTest::addColumn<bool>("ofTwo");
    QTest::newRow("Return") << QList<int>{Qt::Key_Return} << QMessageBox::Yes << false;
    QTest::newRow("Enter") << QList<int>{Qt::Key_Enter} << QMessageBox::Yes << false;
    QTest::newRow("Space") << QList<int>{Qt::Key_Space} << QMessageBox::Yes << false;
    QTest::newRow("Escape") << QList<int>{Qt::Key_Escape} << QMessageBox::Cancel << false;
    QTest::newRow("there and back")
        << QList<int>{Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return} << QMessageBox::Yes << false;
}

void TestMessageBoxes::keysAnswer()
{
    QFETCH(QList<int>, keys);
    const auto press = [&keys](QMessageBox *box) {
        for (const int key : keys)
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
        QVERIFY(!box->isVisible());
    };
    whenABoxStands(press);
    QTEST(askYesNoCancel(u"x"_qs), "ofThree");
    whenABoxStands(press);
    QTEST(askYesNo(u"x"_qs), "ofTwo");
    if (keys.size() > 1)
        return;
    whenABoxStands(press);
    showError(u"x"_qs);
}

void TestMessageBoxes::aScreenReaderHearsTitleAndText()
{
    QString name;
    QString description;
    QStringList buttons;
    whenABoxStands([&](QMessageBox *box) {
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(box);
        name = accessible->text(QAccessible::Name);
        description = accessible->text(QAccessible::Description);
        for (QAbstractButton *button : box->buttons())
            buttons.append(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name));
        box->close();
    });
    askYesNo(u"Die Datei<br>%1<br>löschen?"_qs.arg(fileNameAsHtml(u"a<b.mp3"_qs)));
    QCOMPARE(name, u"Frage ..."_qs);
    QCOMPARE(description, u"Die Datei\na<b.mp3\nlöschen?"_qs);
    buttons.sort();
    QCOMPARE(buttons, QStringList({u"Ja"_qs, u"Nein"_qs}));
}

void TestMessageBoxes::aBoxIsCentered_data()
{
    const QSize screen = QGuiApplication::primaryScreen()->size();
    const QPoint corner(screen.width() - 200, screen.height() - 100);
    QTest::addColumn<QRect>("window");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("in the middle") << QRect(100, 100, 400, 300) << QPoint(200, 200);
    QTest::newRow("odd") << QRect(101, 103, 401, 301) << QPoint(201, 203);
    QTest::newRow("small window") << QRect(300, 300, 100, 60) << QPoint(250, 280);
    QTest::newRow("above the screen") << QRect(100, -200, 400, 300) << QPoint(200, 20);
    QTest::newRow("just at the upper edge") << QRect(100, 0, 400, 100) << QPoint(200, 0);
    QTest::newRow("right of the screen") << QRect(screen.width() - 100, 100, 300, 300) << corner;
    QTest::newRow("below the screen") << QRect(100, screen.height() - 100, 300, 300) << corner;
    QTest::newRow("just inside") << QRect(screen.width() - 300, screen.height() - 300, 400, 500)
                                 << corner;
}

void TestMessageBoxes::aBoxIsCentered()
{
    QFETCH(QRect, window);
    QWidget active;
    active.setMinimumSize(1, 1);
    active.show();
    QVERIFY(QTest::qWaitForWindowActive(&active));
    active.resize(window.size());
    active.move(window.topLeft());
    QWidget box;
    box.setFixedSize(200, 100);
    centerOnActiveWindow(&box);
    QVERIFY(box.isVisible());
    QTEST(box.pos(), "place");
}

void TestMessageBoxes::withoutAWindowTheBoxStays()
{
    QVERIFY(!QApplication::activeWindow());
    QWidget box;
    box.setFixedSize(200, 100);
    box.move(33, 44);
    centerOnActiveWindow(&box);
    QVERIFY(box.isVisible());
    QCOMPARE(box.pos(), QPoint(33, 44));
}

TARVELO_TEST_MAIN(TestMessageBoxes, QApplication)
#include "tst_MessageBoxes.moc"
