#pragma once

class QSplashScreen;
class TellurixController;

// Loads the library of every mode that has one and shows the progress on the splash. Returns 1, or -1 after a
// failure that the user has been told; the libraries loaded until then stay with the facade. The section
// editor alone may be missing.
int loadModules(TellurixController* controller, QSplashScreen* splash);
