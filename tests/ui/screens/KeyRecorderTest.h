#pragma once

#include "shortcuts/Keys.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "ui/screens/KeyRecorder.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace palomet::test {

using namespace Qt::StringLiterals;

inline constexpr quint32 keyA = 0;
inline constexpr quint32 keyK = 40;

/// The recorders of both shortcuts, which they store in a file.
class KeyRecorderTest : public ::testing::Test {
protected:
    KeyRecorderTest() {
        shortcuts.onChange = [this] { ++changes; };
    }

    QTemporaryDir folder;
    QSettings file{folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
    Shortcuts shortcuts{file};
    FixedKeyboardLayout layout{{{keyA, u"a"_s}, {keyK, u"k"_s}}};
    KeyRecorder listen{KeyRecorder::Role::Listen, shortcuts, layout};
    KeyRecorder stop{KeyRecorder::Role::Stop, shortcuts, layout};
    int changes = 0;
};

} // namespace palomet::test
