/* A library of that name that is another one. */
extern int other(void);
int other(void) {
  return 1;
}
