#pragma once

#include <QString>

/// Makes calls of the system fail, one at a time, for files below a folder: the program's own functions stand
/// before the C library's, also for Qt, the database's driver and whatever writes workbooks. A program that
/// links it is made with ENABLE_EXPORTS.
namespace faulty_disk {

enum class Kind {
    NoSpace,     ///< ENOSPC of whatever makes, writes, closes or renames a file
    InputOutput, ///< EIO of the same
    Sync,        ///< EIO of fsync and fdatasync
    ShortWrite,  ///< half is written
};

/// The n-th such call fails, from 1, or it and all after it.
void arm(const QString& folder, Kind kind, int number, bool goesOn = false);
/// Back to a sound disk; whether there were as many calls.
bool disarm();

} // namespace faulty_disk
