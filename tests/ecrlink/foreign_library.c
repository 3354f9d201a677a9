/* A communications library that keeps what it was called with, writes over all that it may write to, and
 * answers every mode with the code that the test asked for in the address. */
#include <stdio.h>
#include <string.h>

#include "platform/ecrcom/ecrcom.h"

static char traccia[4096];

ECRCOM_API const char* estranea_traccia(void) {
  return traccia;
}
ECRCOM_API void estranea_dimentica(void) {
  traccia[0] = 0;
}

static int tutti_blank(const char* buffer, int32_t lunghezza) {
  for (int32_t i = 0; i < lunghezza; ++i)
    if (buffer[i] != ' ') return 0;
  return 1;
}

int16_t ecr_command(char* ip, char* file, int32_t mode, char* buffer, int32_t buffer_length) {
  const size_t usati = strlen(traccia);
  snprintf(traccia + usati, sizeof traccia - usati, "%s|%s|%d|%d|%d;", ip, file, (int)mode,
           (int)buffer_length, tutti_blank(buffer, buffer_length));
  const int16_t codice = ip[0] == '9' ? 9 : 0;
  if (ip[0] != 0) ip[strlen(ip) - 1] = '7';
  if (file[0] != 0) file[0] = 'X';
  memset(buffer, '#', 4);
  return codice;
}

void ecr_get_err(int16_t code, char* text) {
  (void)code;
  strcpy(text, "Cassa occupata   ");
}
