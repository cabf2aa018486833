// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <grp.h>
#include <unistd.h>
#include <vector>

/// While it lives, the program has the rights of another user, if root runs it; for somebody else
/// nothing changes. Linux only.
class OtherUser
{
public:
    static constexpr uid_t nobody = 65534;

    explicit OtherUser(uid_t user = nobody, gid_t group = nobody, gid_t secondGroup = nobody)
    {
        if (!isRoot)
            return;
        oldGroups.resize(static_cast<size_t>(getgroups(0, nullptr)));
        valid = getgroups(static_cast<int>(oldGroups.size()), oldGroups.data()) >= 0 &&
                setgroups(1, &secondGroup) == 0 && setresgid(group, group, 0) == 0 &&
                setresuid(user, user, 0) == 0;
    }
    ~OtherUser()
    {
        if (isRoot && (setresuid(0, 0, 0) != 0 || setresgid(0, 0, 0) != 0 ||
                       setgroups(oldGroups.size(), oldGroups.data()) != 0))
            qFatal("cannot become root again");
    }
    Q_DISABLE_COPY_MOVE(OtherUser)

    [[nodiscard]] bool isValid() const { return valid; }

private:
    bool isRoot = geteuid() == 0;
    bool valid = !isRoot;
    std::vector<gid_t> oldGroups;
};
