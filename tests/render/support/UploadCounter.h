#pragma once

/// While one lives, counts the uploads of 3D textures.
class UploadCounter
{
public:
    UploadCounter();
    ~UploadCounter();
    UploadCounter(const UploadCounter&) = delete;
    UploadCounter& operator=(const UploadCounter&) = delete;

    int count() const;
};
