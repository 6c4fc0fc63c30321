// The Windows entry point; everything else lives in Entry.
#include "frame/startup_win.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int showCommand) {
    return tessel::Entry(instance, commandLine, showCommand);
}
