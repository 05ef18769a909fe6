// A program that calls nothing: what it is linked with shows whether that is complete.

int main() {}
