#pragma once

#include "Player.h"
#include "PositionsPage.h"
#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QHeaderView>

#include <memory>

// A page on the screen, 1000 by 600 pixels, in the dark theme. What the page's tests have in
// common.
class PositionsFixture : public QObject
{
    Q_OBJECT

protected:
    static void useTheme(const QString &name)
    {
        const Theme &theme = themeNamed(name);
        qApp->setPalette(theme.palette);
        qApp->setStyleSheet(filledStyleSheet(styleSheetText(theme), {}));
    }

    void showPage()
    {
        player = std::make_unique<Player>();
        page = std::make_unique<PositionsPage>(player.get());
        page->resize(1000, 600);
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    }

    void dropPage()
    {
        page.reset();
        player.reset();
    }

    // 180 s, a part every 4 s, all with the same steps.
    static SongPtr songWith(int positions, const QString &steps, int bpm = 120)
    {
        const auto song = SongPtr::create(QStringLiteral("/none.mp3"), true);
        song->setPlayLength(180);
        song->setBpm(QString::number(bpm));
        for (int i = 0; i < positions; ++i)
            song->getPositions().insert(i, {i * 4000, QStringLiteral("Part %1").arg(i), steps});
        return song;
    }

    void show(const SongPtr &song)
    {
        page->setSong(song);
        page->refreshPositionsWindow();
    }

    QTableWidget *table() const { return page->findChild<QTableWidget *>(); }
    QString text(int row, int column) const { return table()->item(row, column)->text(); }
    QFont stepsFont(int row = 0) const { return table()->item(row, StepsColumn)->font(); }
    QPoint cell(int row, int column) const
    {
        return table()->visualItemRect(table()->item(row, column)).center();
    }

    std::unique_ptr<Player> player;
    std::unique_ptr<PositionsPage> page;
};
