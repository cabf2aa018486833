// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filesave.h"

#include <QByteArray>
#include <QString>

/// Saving with what the toolkit offers, for systems other than Unix; compiled and tested
/// everywhere, but never tried on Windows.
///
/// The toolkit cannot tell whether a new file would have the old one's owner and access list, so an
/// existing file is always rewritten in place, with a complete copy of the new content beside it
/// meanwhile; only a new file is renamed into its place. The content is kept in memory.
class ToolkitSave : public FileSave
{
public:
    explicit ToolkitSave(QString path);

    void write(const QByteArray& bytes) override;
    [[nodiscard]] SaveResult commit() override;

private:
    [[nodiscard]] SaveResult makeNew() const;
    [[nodiscard]] SaveResult rewriteWithCopy() const;
    [[nodiscard]] SaveResult rewrite(bool& isTorn) const;

    QString target; ///< Behind all symbolic links.
    QByteArray content;
};
