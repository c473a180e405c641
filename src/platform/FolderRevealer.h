#pragma once

#include <QString>

#include <memory>

// Shows a saved file in the desktop's file manager.
class FolderRevealer
{
public:
    virtual ~FolderRevealer() = default;

    virtual void reveal(const QString &filePath) = 0;

    static std::unique_ptr<FolderRevealer> create();
};
