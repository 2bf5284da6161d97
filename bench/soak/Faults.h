#pragma once

namespace palomet::bench {

class Stage;

/// One of the things that happen to what the program depends on. Each returns when everything is as it was.
void killBackend(Stage &stage);
void killSoundServer(Stage &stage);
void dropLink(Stage &stage);
void restartTray(Stage &stage);

} // namespace palomet::bench
