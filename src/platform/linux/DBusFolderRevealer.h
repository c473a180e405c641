#pragma once

#include "platform/FolderRevealer.h"

// Asks the session's file manager to select the file; without one on the
// bus, opens the folder with the desktop's default handler.
class DBusFolderRevealer final : public FolderRevealer
{
public:
    void reveal(const QString &filePath) override;
};
