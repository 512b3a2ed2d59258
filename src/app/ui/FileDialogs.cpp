#include "FileDialogs.h"

#include <QFileDialog>

namespace {

DirectoryChooser &directoryChooser()
{
    static DirectoryChooser chooser;
    return chooser;
}

} // namespace

QString chooseDirectory(QWidget *parent, const QString &title, const QString &start)
{
    if (directoryChooser())
        return directoryChooser()(title, start);
    return QFileDialog::getExistingDirectory(parent, title, start);
}

void setDirectoryChooser(const DirectoryChooser &chooser)
{
    directoryChooser() = chooser;
}
