#include <stdio.h>
#include <zelconvert/zelconvert.h>

int main(void) {
  printf("%d types\n", (int)cZelGetNumFileTypes());
  return 0;
}
