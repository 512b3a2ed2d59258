#include "SettingsPage.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabBar>
#include <QTextEdit>
#include <QWheelEvent>

using Settings::Key;

// The settings screen without a mouse, for a screen reader, and at large fonts.
class TestSettingsKeys : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init();
    void cleanup() { dropWindow(); }

    void tabReachesEverything_data();
    void tabReachesEverything();
    void escapeGivesTheKeysBack();
    void windowKeysBesideChoices_data();
    void windowKeysBesideChoices();
    void lettersAreTyped();
    void numberTypedLastCounts();
    void workedByKeysStays();
    void controlTabLeavesThePage();
    void wheelPassesBy();
    void everythingHasAName_data();
    void everythingHasAName();
    void nothingIsCut_data();
    void nothingIsCut();
    void themeComesOncePerPass();
    void themeAtTheStart();

private:
    SettingsPage *page() const { return find<SettingsPage>("tabWidgetSettings"); }
    QList<QWidget *> reachable() const;
};

void TestSettingsKeys::init()
{
    prepareWindow();
    useLibrary();
    Settings::setValue(Key::CacheDir, music->path());
    Settings::setValue(Key::CloudOn, true);
}

namespace {

bool isWorkable(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QSpinBox *>(widget)
           || qobject_cast<const QComboBox *>(widget) || qobject_cast<const QLineEdit *>(widget)
           || qobject_cast<const QPlainTextEdit *>(widget)
           || qobject_cast<const QTextEdit *>(widget);
}

bool isPartOf(const QWidget *widget, const char *ending)
{
    return widget->objectName().endsWith(QLatin1String(ending));
}

} // namespace

// What is on the tab on show, but for the buttons that repeat what the keys of a number do.
QList<QWidget *> TestSettingsKeys::reachable() const
{
    QList<QWidget *> result;
    for (QWidget *widget : page()->currentWidget()->findChildren<QWidget *>()) {
        const bool own
            = !widget->objectName().startsWith(u"qt_"_qs) && !widget->objectName().isEmpty();
        if (own && isWorkable(widget) && widget->isVisible() && widget->isEnabled()
            && !isPartOf(widget, "Minus") && !isPartOf(widget, "Plus")
            && !qobject_cast<QRadioButton *>(widget))
            result.append(widget);
    }
    return result;
}

void TestSettingsKeys::tabReachesEverything_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < 5; ++tab)
        QTest::addRow("%d", tab) << tab;
}

void TestSettingsKeys::tabReachesEverything()
{
    QFETCH(int, tab);
    Settings::setValue(Key::EventRounding, 86400);
    start();
    window->showScreen(SettingsScreen);
    page()->setCurrentIndex(tab);
    QVERIFY(window->centralWidget()->hasFocus());
    QList<QWidget *> missing = reachable();
    QVERIFY(!missing.isEmpty());
    // Of radio buttons, one leads to the others.
    int radioButtons = 0;
    for (int step = 0; step < 100 && !missing.isEmpty(); ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget *there = QApplication::focusWidget();
        const bool isRadio = qobject_cast<QRadioButton *>(there);
        radioButtons += isRadio ? 1 : 0;
        QVERIFY2(isRadio || missing.removeOne(there), qPrintable(there->objectName()));
    }
    QVERIFY(missing.isEmpty());
    QVERIFY(tab != 1 || radioButtons >= 2);
    // And then out again, to begin anew.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(window->centralWidget()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(page()->isAncestorOf(QApplication::focusWidget()));
}

void TestSettingsKeys::escapeGivesTheKeysBack()
{
    start();
    window->showScreen(SettingsScreen);
    for (const char *name :
         {"spinBoxFontSize", "lineEditMusicDir", "checkBoxLogging", "comboBoxLanguage"}) {
        auto *widget = find<QWidget>(name);
        widget->setFocus(Qt::TabFocusReason);
        QTest::keyClick(widget, Qt::Key_Escape);
        QVERIFY2(window->centralWidget()->hasFocus(), name);
    }
    page()->setCurrentIndex(1);
    for (const char *name : {"lineEditPosSeparators", "plainTextEditUserPartPresets"}) {
        auto *widget = find<QWidget>(name);
        widget->setFocus(Qt::TabFocusReason);
        QTest::keyClick(widget, Qt::Key_Escape);
        QVERIFY2(window->centralWidget()->hasFocus(), name);
    }
}

void TestSettingsKeys::windowKeysBesideChoices_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("checkBoxLogging") << 0;
    QTest::newRow("comboBoxLanguage") << 0;
    QTest::newRow("comboBoxStyleSheet") << 0;
    QTest::newRow("buttonMusicDir") << 0;
    QTest::newRow("buttonCacheInfo") << 0;
    QTest::newRow("radioButtonRoundingNone") << 1;
}

void TestSettingsKeys::windowKeysBesideChoices()
{
    QFETCH(int, tab);
    start();
    window->showScreen(SettingsScreen);
    page()->setCurrentIndex(tab);
    auto *widget = find<QWidget>(QTest::currentDataTag());
    const auto press = [&](Qt::Key code) {
        widget->setFocus(Qt::TabFocusReason);
        QVERIFY(widget->hasFocus());
        QTest::keyClick(widget, code);
    };
    press(Qt::Key_Plus);
    QCOMPARE(window->getTempo(), 1);
    press(Qt::Key_Minus);
    QCOMPARE(window->getTempo(), 0);
    const int mode = find<QComboBox>("comboBoxTimeDisplay")->currentIndex();
    press(Qt::Key_C);
    QCOMPARE(find<QComboBox>("comboBoxTimeDisplay")->currentIndex(), (mode + 1) % 4);
    press(Qt::Key_F4);
    QCOMPARE(page()->currentIndex(), tab + 1);
    page()->setCurrentIndex(tab);
    press(Qt::Key_Return);
    QCOMPARE(window->currentScreen(), static_cast<int>(LibraryScreen));
    QVERIFY(boxes.isEmpty());
}

void TestSettingsKeys::lettersAreTyped()
{
    start();
    window->showScreen(SettingsScreen);
    page()->setCurrentIndex(1);
    auto *field = find<QLineEdit>("lineEditSpecialCharacters");
    field->setFocus(Qt::TabFocusReason);
    field->clear();
    QTest::keyClicks(field, u"pac+-"_qs);
    QCOMPARE(field->text(), u"pac+-"_qs);
    QCOMPARE(window->getTempo(), 0);
    QVERIFY(field->hasFocus());
    QVERIFY(!window->isPaused());
}

// Also where nothing but the end of the program follows.
void TestSettingsKeys::numberTypedLastCounts()
{
    start();
    window->showScreen(SettingsScreen);
    page()->setCurrentIndex(0);
    auto *field = find<QSpinBox>("spinBoxRegisterPlay");
    field->setFocus(Qt::TabFocusReason);
    field->selectAll();
    QTest::keyClicks(field, u"123"_qs);
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::RegisterPlay).toInt(), 123);
}

// Otherwise whoever tabs to a number would lose it with the first step.
void TestSettingsKeys::workedByKeysStays()
{
    start();
    window->showScreen(SettingsScreen);
    auto *box = find<QSpinBox>("spinBoxRegisterPlay");
    box->setFocus(Qt::TabFocusReason);
    const int before = box->value();
    QTest::keyClick(box, Qt::Key_Up);
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(box->value(), before + 2);
    QVERIFY(box->hasFocus());
    box->setFocus(Qt::MouseFocusReason);
    window->centralWidget()->setFocus();
    QTest::mouseClick(box, Qt::LeftButton);
    QVERIFY(box->hasFocus());
    box->stepUp();
    QVERIFY(window->centralWidget()->hasFocus());
    // The mouse leaves the keys with the window.
    QTest::mouseClick(find<QCheckBox>("checkBoxAutoEvent"), Qt::LeftButton);
    QVERIFY(window->centralWidget()->hasFocus());
}

void TestSettingsKeys::controlTabLeavesThePage()
{
    start();
    for (const char *name : {"spinBoxFontSize", "checkBoxLogging", "lineEditMusicDir"}) {
        window->showScreen(SettingsScreen);
        auto *widget = find<QWidget>(name);
        widget->setFocus(Qt::TabFocusReason);
        QTest::keyClick(widget, Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY2(window->currentScreen() == HelpScreen, name);
    }
}

void TestSettingsKeys::wheelPassesBy()
{
    start();
    window->showScreen(SettingsScreen);
    auto *box = find<QSpinBox>("spinBoxFontSize");
    auto *list = find<QComboBox>("comboBoxStyleSheet");
    box->setFocus();
    for (QWidget *widget : std::initializer_list<QWidget *>{box, list}) {
        QWheelEvent turn(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &turn);
    }
    QCOMPARE(box->value(), 15);
    QCOMPARE(list->currentIndex(), 0);
}

void TestSettingsKeys::everythingHasAName_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("German") << u"de_DE"_qs;
    QTest::newRow("English") << u"en_US"_qs;
}

void TestSettingsKeys::everythingHasAName()
{
    QFETCH(QString, language);
    Settings::setValue(Key::Language, language);
    start();
    window->showScreen(SettingsScreen);
    QVERIFY(!page()->accessibleName().isEmpty());
    QHash<QString, QString> seen;
    for (const QWidget *widget : page()->findChildren<QWidget *>()) {
        const bool own = !widget->objectName().startsWith(u"qt_"_qs)
                         && !widget->objectName().isEmpty()
                         && !qobject_cast<QTabBar *>(widget->parentWidget());
        if (!own || !isWorkable(widget))
            continue;
        const QString name = widget->accessibleName();
        QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName()));
        QVERIFY2(!name.endsWith(u':'), qPrintable(name));
        const bool sameRow
            = qobject_cast<const QCheckBox *>(widget) || qobject_cast<const QLineEdit *>(widget);
        QVERIFY2(sameRow || !seen.contains(name),
                 qPrintable(name + u": "_qs + widget->objectName() + u' ' + seen.value(name)));
        if (!sameRow)
            seen.insert(name, widget->objectName());
    }
    QVERIFY(seen.size() > 50);
}

void TestSettingsKeys::nothingIsCut_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("font");
    for (const QString &language : {u"de_DE"_qs, u"en_US"_qs}) {
        QTest::addRow("%s small", qPrintable(language)) << language << QSize(1024, 768) << 21;
        QTest::addRow("%s large", qPrintable(language)) << language << QSize(1920, 1080) << 30;
    }
}

void TestSettingsKeys::nothingIsCut()
{
    QFETCH(QString, language);
    QFETCH(QSize, size);
    QFETCH(int, font);
    Settings::setValue(Key::Language, language);
    Settings::setValue(Key::FontSize, font);
    start();
    window->resize(size);
    window->showScreen(SettingsScreen);
    QCOMPARE(window->size(), size);
    int tabs = 0;
    for (int tab = 0; tab < page()->count(); ++tab) {
        page()->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        tabs += page()->tabBar()->tabRect(tab).width();
        if (const auto *area = qobject_cast<QScrollArea *>(page()->currentWidget()))
            QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
        for (const QWidget *widget : page()->currentWidget()->findChildren<QWidget *>()) {
            const bool hasText = qobject_cast<const QLabel *>(widget)
                                 || qobject_cast<const QAbstractButton *>(widget)
                                 || qobject_cast<const QComboBox *>(widget)
                                 || qobject_cast<const QSpinBox *>(widget);
            const bool isSmall
                = isPartOf(widget, "Info") || isPartOf(widget, "Minus") || isPartOf(widget, "Plus");
            if (!hasText || !widget->isVisible() || (isSmall && !isPartOf(widget, "SysInfo")))
                continue;
            const auto *number = qobject_cast<const QSpinBox *>(widget);
            const int needed = number ? number->fontMetrics().horizontalAdvance(number->text())
                                      : widget->sizeHint().width();
            const int given = number ? number->findChild<QLineEdit *>()->width() : widget->width();
            QVERIFY2(given >= needed, qPrintable(widget->objectName()));
            QVERIFY2(widget->height() >= widget->sizeHint().height(),
                     qPrintable(widget->objectName()));
        }
        for (const QLineEdit *field : page()->currentWidget()->findChildren<QLineEdit *>()) {
            if (!field->placeholderText().isEmpty())
                QVERIFY2(field->width()
                             > field->fontMetrics().horizontalAdvance(field->placeholderText())
                                   + 16,
                         qPrintable(field->placeholderText()));
        }
    }
    QVERIFY(tabs <= page()->width());
}

namespace {

class SheetCounter : public QObject
{
public:
    explicit SheetCounter(QWidget *watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::StyleChange ? 1 : 0;
        return false;
    }
    int count = 0;
};

} // namespace

// A key that is held asks for it again and again.
void TestSettingsKeys::themeComesOncePerPass()
{
    start();
    QCoreApplication::processEvents();
    SheetCounter counter(window->centralWidget());
    key(Qt::Key_Plus, Qt::AltModifier);
    QCOMPARE(counter.count, 0);
    QTRY_VERIFY(counter.count > 0);
    const int once = counter.count;
    counter.count = 0;
    for (int i = 0; i < 7; ++i)
        QCoreApplication::postEvent(window->centralWidget(),
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_Plus, Qt::AltModifier));
    for (int i = 0; i < 3; ++i)
        QCoreApplication::postEvent(
            window->centralWidget(),
            new QKeyEvent(QEvent::KeyPress, Qt::Key_Period, Qt::ControlModifier));
    QTRY_VERIFY(counter.count > 0);
    QCoreApplication::processEvents();
    QCOMPARE(counter.count, once);
    QCOMPARE(find<QSpinBox>("spinBoxFontSize")->value(), 23);
    QVERIFY(qApp->styleSheet().contains(u"font-size: 23pt"_qs));
}

void TestSettingsKeys::themeAtTheStart()
{
    Settings::setValue(Key::FontSize, 17);
    Settings::setValue(Key::StyleSheet, u"Bright Morning"_qs);
    start();
    QVERIFY(qApp->styleSheet().contains(u"font-size: 17pt"_qs));
    QVERIFY(qApp->styleSheet().contains(u":/Bright_Morning/"_qs));
}

TARVELO_TEST_MAIN(TestSettingsKeys, QApplication)
#include "tst_SettingsKeys.moc"
