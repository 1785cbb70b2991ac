#include "kit/frame/command_line.h"
#include "platform/large_pages.h"
#include "platform/standard_streams.h"
#include "platform/termination.h"

int main(int argumentCount, char** arguments) {
  tavrel::prepareHeap();
  tavrel::prepareStandardStreams();
  tavrel::deleteDoomedFilesOnSignals();
  return tavrel::kit::runTavkit(argumentCount, arguments);
}
