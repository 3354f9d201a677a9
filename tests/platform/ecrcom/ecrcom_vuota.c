/* A library of that name that is another one. */
extern int altro(void);
int altro(void) {
  return 1;
}
