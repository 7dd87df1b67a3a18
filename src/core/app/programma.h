// What stands around every run of the windows: the program's, the scripted one, the measured one.
#pragma once

/// Puts Qt behind the seams, gives errors their report and commands their forms. Call it once, after the
/// Applicazione and before Main.
void PreparaProgramma();
