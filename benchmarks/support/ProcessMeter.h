#pragma once

/// CPU time of all threads of this process, in seconds.
double cpuSeconds();

/// A line of /proc/self/status in megabytes, such as "VmRSS:" (resident now) or "VmHWM:" (the most since
/// forgetPeak()). 0 where the system does not tell.
double memory(const char* key);

/// From here on "VmHWM:" counts anew.
void forgetPeak();
