// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/wholefile.h"

#ifdef Q_OS_UNIX
#include "support/unixsave.h"
using SystemSave = UnixSave;
#else
#include "support/toolkitsave.h"
using SystemSave = ToolkitSave;
#endif

WholeFile::WholeFile(const QString& path)
    : save(std::make_unique<SystemSave>(path))
{}

void WholeFile::write(const QByteArray& bytes)
{
    save->write(bytes);
}

WholeFile::Result WholeFile::commit()
{
    return save->commit();
}
