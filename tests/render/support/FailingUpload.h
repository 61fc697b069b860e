#pragma once

/// While one lives, every upload of a 3D texture asks the driver for size x size x size texels of nothing:
/// 2048 is out of memory, 1 << 20 is no valid size.
class FailingUpload
{
public:
    explicit FailingUpload(int size = 2048);
    ~FailingUpload();
    FailingUpload(const FailingUpload&) = delete;
    FailingUpload& operator=(const FailingUpload&) = delete;
};
