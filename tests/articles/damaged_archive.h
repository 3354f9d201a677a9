#pragma once

class BackRoom;

/// Spoils one page of the open archive where none of the program's statements comes by: all of them would
/// run, and a file that does not hold together would be written on. It is closed and opened again.
void damage(BackRoom& room);
