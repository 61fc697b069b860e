#pragma once

#include <QByteArray>
#include <QString>

namespace hvdicom {

// Text of an attribute in the characters that Specific Character Set names (its first value; empty: the basic
// one). Bytes of an unknown set are read as Latin 1.
QString decodedText(QByteArray const& bytes, QByteArray const& characterSet);

}  // namespace hvdicom
