#pragma once

/// State of the host's spectral unmixing. Opaque.
struct tag_sspecunmix;
