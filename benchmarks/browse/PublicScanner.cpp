#include "PublicScanner.h"

#include <gdcmScanner.h>

std::size_t scanByGdcm(const std::vector<std::string>& files)
{
    gdcm::Scanner scanner;
    for (const gdcm::Tag& tag :
         {gdcm::Tag(0x0008, 0x0060), gdcm::Tag(0x0008, 0x0070), gdcm::Tag(0x0018, 0x0050),
          gdcm::Tag(0x0018, 0x0088), gdcm::Tag(0x0028, 0x0004), gdcm::Tag(0x0028, 0x0008),
          gdcm::Tag(0x0028, 0x0010), gdcm::Tag(0x0028, 0x0011), gdcm::Tag(0x0028, 0x0030),
          gdcm::Tag(0x0028, 0x0101)})
        scanner.AddTag(tag);
    return scanner.Scan(files) ? scanner.GetKeys().size() : 0;
}
