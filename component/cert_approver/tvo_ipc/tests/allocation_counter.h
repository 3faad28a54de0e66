#pragma once

/// How often `operator new` has run on the calling thread.
unsigned AllocationsOfThisThread();
