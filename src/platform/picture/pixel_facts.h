#pragma once

#include "platform/picture/facts.h"

class QIODevice;

namespace vasclip::picture {

/// Takes bits per pixel and compression of a BMP, PNG or TIFF from its own head: the reader tells what it would
/// make of the pixels, which is another thing. A file of any other kind, or one that does not tell, leaves the
/// facts as they are.
/// @param device  seekable; stands anywhere afterwards
void TakePixelFacts(Facts& facts, QIODevice& device);

} // namespace vasclip::picture
