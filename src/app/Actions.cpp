#include "Actions.h"

#include "ThemeContext.h"

#include <QAction>

Actions::Actions(QWidget *window)
    : QObject(window)
    , owner(window)
{
    makeActions();
    for (int id = 0; id < static_cast<int>(MenuId::Count); ++id)
        menus.append(makeMenu(static_cast<MenuId>(id)));
    adaptTexts(0);
}

void Actions::makeActions()
{
    for (const ActionRow &row : actionTable()) {
        auto *action = new QAction(this);
        action->setShortcut(row.shortcut.sequence());
        action->setShortcutVisibleInContextMenu(true);
        action->setCheckable(row.checkable);
        const CommandCall call{row.command, row.argument};
        connect(action, &QAction::triggered, this, [this, call] { Q_EMIT requested(call); });
        actions.append(action);
    }
}

QMenu *Actions::makeMenu(MenuId id)
{
    auto *whole = new QMenu(owner);
    QMenu *at = whole;
    for (const MenuEntry &entry : menuEntries(id)) {
        switch (entry.kind) {
        case MenuEntry::Action:
            at->addAction(action(entry.action));
            break;
        case MenuEntry::Separator:
            at->addSeparator();
            break;
        case MenuEntry::Submenu:
            at = whole->addMenu(QString());
            submenus.insert(at, entry.title);
            break;
        case MenuEntry::SubmenuEnd:
            at = whole;
        }
    }
    return whole;
}

QAction *Actions::action(ActionId id) const
{
    return actions.at(static_cast<int>(id));
}

QList<QAction *> Actions::entries(MenuId id) const
{
    QList<QAction *> all;
    for (const MenuEntry &entry : menuEntries(id))
        all.append(entry.kind == MenuEntry::Action ? action(entry.action) : nullptr);
    return all;
}

void Actions::adapt(const ActionState &state)
{
    for (const ActionRow &row : actionTable())
        if (const auto enabled = isActionEnabled(row.id, state))
            action(row.id)->setEnabled(*enabled);
    adaptTexts(state.songsSelected);
}

void Actions::adaptToSong(const SongState &state)
{
    for (const ActionRow &row : actionTable())
        if (const auto enabled = isActionEnabledByLoading(row.id, state))
            action(row.id)->setEnabled(*enabled);
}

void Actions::adaptTexts(int songsSelected)
{
    for (const ActionRow &row : actionTable())
        action(row.id)->setText(actionText(row.id, songsSelected));
    for (auto menu = submenus.cbegin(); menu != submenus.cend(); ++menu)
        menu.key()->setTitle(submenuTitle(menu.value(), songsSelected));
}

void Actions::refreshPictures()
{
    for (const ActionRow &row : actionTable())
        showPicture(row.id);
}

void Actions::setPicture(ActionId id, const char *name)
{
    pictures.insert(id, name);
    showPicture(id);
}

void Actions::showPicture(ActionId id)
{
    if (const char *name = pictures.value(id, actionRow(id).picture))
        action(id)->setIcon(themeIcon(QLatin1String(name)));
}
