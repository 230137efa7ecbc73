// Linked to the desktop tests under the leak checker: no library is unloaded any more, so that what the OpenGL driver
// leaves behind is reported under the driver's name and can be told from leaks of our own.

extern "C" int dlclose(void* /*library*/) noexcept { return 0; }
