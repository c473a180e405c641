#pragma once

#include "platform/FolderRevealer.h"

// Opens the file's folder in Explorer.
class ExplorerFolderRevealer final : public FolderRevealer
{
public:
    void reveal(const QString &filePath) override;
};
