#pragma once

/// Layout of the bits of a movie frame.
enum HVSMovieBufferTypes : int
{
    HVS_MOVIE_BUFFER_RGB32 = 3,      ///< 32 bits a pixel, for all writers but the next
    HVS_MOVIE_BUFFER_RGB32_MPEG = 8  ///< the same, for files with the suffix "mpg"
};
