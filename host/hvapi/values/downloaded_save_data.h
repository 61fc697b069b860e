#pragma once

/// What the host keeps of a file that it downloaded. Opaque: callers pass a null pointer.
struct downloaded_save_data;
