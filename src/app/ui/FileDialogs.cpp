#include "FileDialogs.h"

#include <QFileDialog>

namespace {

struct Choosers
{
    DirectoryChooser directory;
    FileChooser saveFile;
    FileChooser openFile;
    FilesChooser openFiles;
};

Choosers &choosers()
{
    static Choosers shared;
    return shared;
}

} // namespace

QString chooseDirectory(QWidget *parent, const QString &title, const QString &start)
{
    if (choosers().directory)
        return choosers().directory(title, start);
    return QFileDialog::getExistingDirectory(parent, title, start);
}

QString chooseSaveFile(QWidget *parent, const QString &title, const QString &proposal,
                       const QString &filter)
{
    if (choosers().saveFile)
        return choosers().saveFile(title, proposal, filter);
    return QFileDialog::getSaveFileName(parent, title, proposal, filter);
}

QString chooseOpenFile(QWidget *parent, const QString &title, const QString &start,
                       const QString &filter)
{
    if (choosers().openFile)
        return choosers().openFile(title, start, filter);
    return QFileDialog::getOpenFileName(parent, title, start, filter);
}

QStringList chooseOpenFiles(QWidget *parent, const QString &title, const QString &start,
                            const QString &filter)
{
    if (choosers().openFiles)
        return choosers().openFiles(title, start, filter);
    return QFileDialog::getOpenFileNames(parent, title, start, filter);
}

void setDirectoryChooser(const DirectoryChooser &chooser)
{
    choosers().directory = chooser;
}

void setSaveFileChooser(const FileChooser &chooser)
{
    choosers().saveFile = chooser;
}

void setOpenFileChooser(const FileChooser &chooser)
{
    choosers().openFile = chooser;
}

void setOpenFilesChooser(const FilesChooser &chooser)
{
    choosers().openFiles = chooser;
}
