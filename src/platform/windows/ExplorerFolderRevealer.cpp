#include "platform/windows/ExplorerFolderRevealer.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

std::unique_ptr<FolderRevealer> FolderRevealer::create()
{
    return std::make_unique<ExplorerFolderRevealer>();
}

void ExplorerFolderRevealer::reveal(const QString &filePath)
{
    const QString folder = QDir::toNativeSeparators(QFileInfo(filePath).absolutePath());
    QProcess::startDetached(QStringLiteral("explorer.exe"), { folder });
}
