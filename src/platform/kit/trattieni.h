// A window that goes when it is closed, and the boxes that its own procedures have opened.
#pragma once

class QWidget;

/// Whatever deletes the window later (WA_DeleteOnClose, deleteLater) waits for the end of the boxes that have
/// come up since this call, because a session of the desktop that ends closes the windows behind a box too,
/// and the procedure that has opened it still goes on in its window. A window that is on view again by then
/// stays.
void TrattieniDietroIBox(QWidget* Finestra);
