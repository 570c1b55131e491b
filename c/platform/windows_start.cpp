// The DLL begins at DllMain: the compiler's start-up code would do nothing for it, but would bring thread-local storage
// along, with which the system refuses to switch thread notifications off.  This is all that is missed of it: printing
// wants to tidy up behind floating-point numbers, and none is printed here.
extern "C" int atexit(void (*)()) { return 0; }
