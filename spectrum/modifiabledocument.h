// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

/// The document that a spectrum window is part of, as far as the window needs to know it.
/// Implemented by the main window.
class ModifiableDocument
{
public:
    ModifiableDocument() = default;
    virtual ~ModifiableDocument() = default;
    ModifiableDocument(const ModifiableDocument&) = delete;
    ModifiableDocument& operator=(const ModifiableDocument&) = delete;
    ModifiableDocument(ModifiableDocument&&) = delete;
    ModifiableDocument& operator=(ModifiableDocument&&) = delete;

    /// Something of the document has changed since it was last loaded or saved.
    virtual void setModified() = 0;
};

Q_DECLARE_INTERFACE(ModifiableDocument, "Ostravel.KORVELA.ModifiableDocument/1.0")
