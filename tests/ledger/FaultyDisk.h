#pragma once

#include <QString>

/// Makes calls of the system fail, one at a time, for files below a folder: the program's own functions stand
/// before the C library's, also for the database's driver.
namespace faulty_disk {

enum class Kind {
    NoSpace,     ///< ENOSPC of whatever makes a file or makes it longer
    InputOutput, ///< EIO of whatever writes or makes a file
    Sync,        ///< EIO of fsync and fdatasync
    ShortWrite,  ///< half is written
};

/// The n-th such call fails, from 1, or it and all after it.
void arm(const QString& folder, Kind kind, int number, bool goesOn = false);
/// Back to a sound disk; whether there were as many calls.
bool disarm();

} // namespace faulty_disk
