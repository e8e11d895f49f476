#pragma once

#include <QList>
#include <QString>

#include <ostream>

/// The tables of samples/README.md, which says what every sample file does: what it says is tested.
namespace sample_table {

struct Sample {
    QString file; ///< below samples/
    QString strategy;
    QString account;
    QString effect; ///< number of instances, or for a faulty file the message, its line breaks as "<br>"
    bool atConfirmation = false; ///< the message comes with 确定, not with the import
};

/// Makes gtest print the file instead of bytes.
inline void PrintTo(const Sample& sample, std::ostream* out)
{
    *out << sample.file.toStdString();
}

QList<Sample> goodSamples();
QList<Sample> faultySamples();

} // namespace sample_table
