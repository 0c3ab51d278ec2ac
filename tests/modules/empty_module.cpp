// A module without the function that makes an engine.
extern "C" __attribute__((visibility("default"))) int notAnEngine() {
  return 0;
}
