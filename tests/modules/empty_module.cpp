// A module without the function that creates an engine.
extern "C" __attribute__((visibility("default"))) int notAnEngine() {
  return 0;
}
