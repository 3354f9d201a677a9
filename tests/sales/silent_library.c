#include <stdio.h>
#include <string.h>

#include "platform/ecrcom/ecrcom.h"

/* A library that another maker might lay into the application folder: a till that stands idle, does all it is
 * asked for, and hands no file over. What it is asked for goes to "chiamate.txt" in the current folder. */

static const char* const kInfo = "V=1.00,B=L,M=4,a=,b=,c=,d=,e=,f=,g=,S=I,T=SORDA,h=,i=,l=,m=,F=0,n=,o=";

int16_t ecr_command(char* ip, char* file, int32_t mode, char* buffer, int32_t buffer_length) {
  FILE* chiamate = fopen("chiamate.txt", "a");
  (void)ip;
  (void)file;
  if (chiamate != NULL) {
    fprintf(chiamate, "%d\n", (int)mode);
    fclose(chiamate);
  }
  if (mode == ECR_INFO_MODE && buffer_length >= (int32_t)strlen(kInfo)) memcpy(buffer, kInfo, strlen(kInfo));
  return 0;
}

void ecr_get_err(int16_t code, char* text) {
  (void)code;
  text[0] = '\0';
}
