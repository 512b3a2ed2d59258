#include "ThemeContext.h"

#include "Theme.h"

#include <QFile>

namespace {

struct Context
{
    QSize iconSize{40, 40};
    QString path = QStringLiteral(":/") + themeNamed({}).directory;
};

Context &context()
{
    static Context shared;
    return shared;
}

QString pictureFile(const QString &name)
{
    return QStringLiteral("%1/%2.png").arg(context().path, name);
}

} // namespace

void setThemeContext(const QSize &iconSize, const QString &themePath)
{
    context() = {iconSize, themePath};
}

QSize themeIconSize()
{
    return context().iconSize;
}

const QString &themePath()
{
    return context().path;
}

QPixmap themePicture(const QString &name)
{
    return QPixmap(pictureFile(name));
}

QIcon themeIcon(const QString &name)
{
    if (!QFile::exists(pictureFile(name)))
        return {};
    // By its file: what is never seen is never read.
    QIcon icon(pictureFile(name));
    const QString disabled = pictureFile(name + QStringLiteral("_Disabled"));
    if (QFile::exists(disabled))
        icon.addFile(disabled, {}, QIcon::Disabled);
    return icon;
}
