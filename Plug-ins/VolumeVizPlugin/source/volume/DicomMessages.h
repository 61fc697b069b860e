#pragma once

// What the reader of DICOM files tells the user through the log when there is no volume.
namespace dicom_message {

constexpr char scanAborted[] = "Loading of DICOM Datasets aborted.";
constexpr char loadAborted[] = "Loading of DICOM frame data aborted.";
constexpr char nothingUsable[] = "Unable to load volume. DICOM not compatible.";
constexpr char notMonochrome[] = "DICOM file not compatible. Application supports only Monochrome1 and "
                                 "Monochrome2 type DICOM photometric interpretation.";
constexpr char notCompatible[] = "Unable to load volume. DICOM file not compatible.";
constexpr char noColumns[] = "Loading aborted. Unable to find Column information.";
constexpr char noRows[] = "Loading aborted. Unable to find Row information.";
constexpr char noFrameMemory[] = "Unable to allocate memory for the contents of the volume file.";
constexpr char noVolumeMemory[] = "Unable allocate memory for Volume data.";
constexpr char exceptionInScan[] = "Memory issue encountered -Unable to load DICOM data ";
constexpr char noFrames[] = "Loading aborted. Unable to find number of frames.";

constexpr char scanTitle[] = "Scanning through DICOM data...";
constexpr char loadTitle[] = "Loading DICOM frame data...";

}  // namespace dicom_message
