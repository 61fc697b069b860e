#pragma once

#include <QByteArray>
#include <random>

// Files to be damaged, one of each encoding: number 0 to mutationSeeds - 1. Two frames of 16 x 16 pixels,
// most of 12 bits; the same bytes in every run.
constexpr int mutationSeeds = 16;
QByteArray mutationSeed(int kind);

// The bytes with one to three damages: bits, lengths, cuts, blocks that are gone or twice there, attributes
// that become sequences; most of them where a file says what it is.
QByteArray mutatedDicom(QByteArray bytes, std::mt19937& random);

// The file, explicit VR little endian or deflated, with that many sequences in one another in front of the
// patient's name, none of them closed. Some ten thousands end a program whose parser goes down by calls.
QByteArray nestedDicom(QByteArray const& file, int levels);
// The same sequences behind the last attribute.
QByteArray nestedAtEnd(QByteArray const& file, int levels);
