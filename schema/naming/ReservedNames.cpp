#include "schema/naming/ReservedNames.h"

#include <string>
#include <unordered_set>

namespace ZvXmlLib16::schema {

namespace {

// Words behind each other, with a space behind each.
using Words = std::unordered_set<std::string_view>;

Words Split(std::string_view text) {
    Words words;
    for (std::size_t end = text.find(' '); end != std::string_view::npos; end = text.find(' ')) {
        words.insert(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return words;
}

// Keywords of C++ and C, lower-case macros of compilers and headers, and what generated code uses itself.
constexpr std::string_view kKeywords =
    "CHAR_BIT CHAR_MAX CHAR_MIN FILENAME_MAX HUGE_VAL INT_MAX INT_MIN LC_ALL LONG_MAX LONG_MIN M_PI "
    "PATH_MAX RAND_MAX SEEK_CUR SEEK_END SEEK_SET alignas alignof and and_eq asm assert auto bitand bitor "
    "bool break case catch char char16_t char32_t char8_t class co_await co_return co_yield compl complex "
    "concept const const_cast consteval constexpr constinit continue decltype default delete do double "
    "dynamic_cast else enum errno explicit export extern false float for friend gen goto i386 if "
    "imaginary inline int linux long major makedev minor mutable namespace new noexcept not not_eq "
    "nullptr operator or or_eq posix private protected public register reinterpret_cast requires restrict "
    "return setjmp short signed sizeof static static_assert static_cast std stderr stdin stdout struct "
    "switch template this thread_local throw true try typedef typeid typename typeof typeof_unqual union "
    "unix unsigned using virtual void volatile wchar_t while xor xor_eq zv ";

// Macros of the headers of the C library.
constexpr std::string_view kMacros =
    "BUFSIZ DOMAIN E2BIG EACCES EADDRINUSE EADDRNOTAVAIL EADV EAFNOSUPPORT EAGAIN EALREADY EBADE EBADF "
    "EBADFD EBADMSG EBADR EBADRQC EBADSLT EBFONT EBUSY ECANCELED ECHILD ECHRNG ECOMM ECONNABORTED "
    "ECONNREFUSED ECONNRESET EDEADLK EDEADLOCK EDESTADDRREQ EDOM EDOTDOT EDQUOT EEXIST EFAULT EFBIG "
    "EHOSTDOWN EHOSTUNREACH EHWPOISON EIDRM EILSEQ EINPROGRESS EINTR EINVAL EIO EISCONN EISDIR EISNAM "
    "EKEYEXPIRED EKEYREJECTED EKEYREVOKED EL2HLT EL2NSYNC EL3HLT EL3RST ELIBACC ELIBBAD ELIBEXEC ELIBMAX "
    "ELIBSCN ELNRNG ELOOP EMEDIUMTYPE EMFILE EMLINK EMSGSIZE EMULTIHOP ENAMETOOLONG ENAVAIL ENETDOWN "
    "ENETRESET ENETUNREACH ENFILE ENOANO ENOBUFS ENOCSI ENODATA ENODEV ENOENT ENOEXEC ENOKEY ENOLCK "
    "ENOLINK ENOMEDIUM ENOMEM ENOMSG ENONET ENOPKG ENOPROTOOPT ENOSPC ENOSR ENOSTR ENOSYS ENOTBLK "
    "ENOTCONN ENOTDIR ENOTEMPTY ENOTNAM ENOTRECOVERABLE ENOTSOCK ENOTSUP ENOTTY ENOTUNIQ ENXIO EOF "
    "EOPNOTSUPP EOVERFLOW EOWNERDEAD EPERM EPFNOSUPPORT EPIPE EPROTO EPROTONOSUPPORT EPROTOTYPE ERANGE "
    "EREMCHG EREMOTE EREMOTEIO ERESTART ERFKILL EROFS ESHUTDOWN ESOCKTNOSUPPORT ESPIPE ESRCH ESRMNT "
    "ESTALE ESTRPIPE ETIME ETIMEDOUT ETOOMANYREFS ETXTBSY EUCLEAN EUNATCH EUSERS EWOULDBLOCK EXDEV EXFULL "
    "FALSE I INFINITY MAXFLOAT MINSIGSTKSZ NAN NDEBUG NFDBITS NGREG NSIG NULL NZERO OVERFLOW SIGABRT "
    "SIGALRM SIGBUS SIGCHLD SIGCLD SIGCONT SIGFPE SIGHUP SIGILL SIGINT SIGIO SIGIOT SIGKILL SIGPIPE "
    "SIGPOLL SIGPROF SIGPWR SIGQUIT SIGRTMAX SIGRTMIN SIGSEGV SIGSTKFLT SIGSTKSZ SIGSTOP SIGSYS SIGTERM "
    "SIGTRAP SIGTSTP SIGTTIN SIGTTOU SIGURG SIGUSR1 SIGUSR2 SIGVTALRM SIGWINCH SIGXCPU SIGXFSZ SING SNAN "
    "TRUE UNDERFLOW WCONTINUED WEOF WEXITED WNOHANG WNOWAIT WSTOPPED WUNTRACED ";

// What the headers of the C library and of POSIX declare in the global namespace.
constexpr std::string_view kGlobals =
    "abort abs accept accept4 access acct acos acosh alarm alloca asctime asin asinh asprintf atan atan2 "
    "atanh atexit atof atoi atol basename bcmp bcopy bind brk bsearch btowc bzero calloc canonicalize "
    "cbrt ceil chdir chmod chown chroot clearenv clearerr clock clone close closefrom cmsghdr confstr "
    "connect copysign cos cosh creat crypt ctermid ctime cuserid daddl daemon daylight ddivl dfmal "
    "difftime div dmull dprintf drand48 drem dsqrtl dsubl dup dup2 dup3 duplocale dysize eaccess ecvt "
    "endusershell environ erf erfc euidaccess execl execle execlp execv execve execveat execvp execvpe "
    "exit exp exp10 exp2 fabs faccessat fadd fallocate fchdir fchmod fchmodat fchown fchownat fclose "
    "fcloseall fcntl fcvt fdatasync fdim fdiv fdopen feclearexcept fedisableexcept feenableexcept "
    "fegetenv fegetexcept fegetexceptflag fegetmode fegetround feholdexcept feof feraiseexcept ferror "
    "fesetenv fesetexcept fesetexceptflag fesetmode fesetround fetestexcept fetestexceptflag feupdateenv "
    "fexecve fflush ffma ffs fgetc fgetpos fgets fgetwc fgetws fileno finite flock flockfile floor fma "
    "fmax fmaximum fmaxmag fmemopen fmin fminimum fminmag fmod fmul fopen fopencookie fork fpathconf "
    "fprintf fputc fputs fputwc fputws fread free freelocale freopen frexp fromfp fromfpx fscanf fseek "
    "fseeko fsetpos fsqrt fstat fstatat fsub fsync ftell ftello ftruncate ftrylockfile funlockfile "
    "futimens fwide fwprintf fwrite fwscanf gamma gcvt getc getchar getcpu getcwd getdate getdelim "
    "getdomainname getdtablesize getegid getentropy getenv geteuid getgid getgroups gethostid gethostname "
    "getline getloadavg getlogin getopt getpagesize getpass getpayload getpeername getpgid getpgrp getpid "
    "getppid getpt getresgid getresuid getsid getsockname getsockopt getsubopt gettid getuid getumask "
    "getusershell getw getwc getwchar getwd gmtime grantpt gsignal hypot ilogb imaxabs imaxdiv index "
    "initstate iovec isalnum isalpha isascii isatty isblank iscanonical iscntrl isctype isdigit iseqsig "
    "isfdtype isgraph isinff isinfl islower isnanf isnanl isprint ispunct issignaling isspace isupper "
    "iswalnum iswalpha iswblank iswcntrl iswctype iswdigit iswgraph iswlower iswprint iswpunct iswspace "
    "iswupper iswxdigit isxdigit iszero itimerspec j0 j1 jn kill killpg labs lchmod lchown lconv ldexp "
    "ldiv lgamma linger link linkat listen llabs lldiv llogb llrint llround localeconv localtime lockf "
    "log log10 log1p log2 logb longjmp lrint lround lseek lstat main malloc mblen mbrlen mbrtowc mbsinit "
    "mbsnrtowcs mbsrtowcs mbstowcs mbtowc memccpy memchr memcmp memcpy memfrob memmem memmove mempcpy "
    "memrchr memset mkdir mkdirat mkdtemp mkfifo mkfifoat mknod mknodat mkostemp mkostemps mkstemp "
    "mkstemps mktemp mktime mmsghdr modf msghdr nan nanosleep nearbyint newlocale nextafter nextdown "
    "nexttoward nextup nice obstack open openat optarg opterr optind optopt osockaddr pathconf pause "
    "pclose perror pipe pipe2 poll pollfd popen pow ppoll pread printf profil pselect psiginfo psignal "
    "ptsname putc putchar putenv puts putw putwc putwchar pwrite qecvt qfcvt qgcvt qsort raise rand "
    "random rawmemchr read readahead readlink readlinkat realloc reallocarray realpath recv recvfrom "
    "recvmmsg recvmsg remainder remove remquo rename renameat revoke rewind rindex rint rmdir round "
    "roundeven rpmatch sbrk scalb scalbln scalbn scanf select send sendmmsg sendmsg sendto setbuf "
    "setbuffer setdomainname setegid setenv seteuid setgid sethostid sethostname setlinebuf setlocale "
    "setlogin setns setpayload setpayloadsig setpgid setpgrp setregid setresgid setresuid setreuid setsid "
    "setsockopt setstate setuid setusershell setvbuf shutdown sigaction sigaddset sigaltstack sigandset "
    "sigblock sigcontext sigdelset sigemptyset sigevent sigfillset siggetmask sighold sigignore "
    "siginterrupt sigisemptyset sigismember siglongjmp signal signgam significand sigorset sigpause "
    "sigpending sigprocmask sigqueue sigrelse sigreturn sigset sigsetmask sigstack sigsuspend "
    "sigtimedwait sigval sigwait sigwaitinfo sin sincos sinh sleep snprintf sockaddr sockatmark socket "
    "socketpair splice sprintf sqrt srand srandom sscanf ssignal stat statx stpcpy stpncpy strcasecmp "
    "strcasestr strcat strchr strchrnul strcmp strcoll strcpy strcspn strdup strerror strfromd strfromf "
    "strfroml strfry strftime strlen strncasecmp strncat strncmp strncpy strndup strnlen strpbrk strptime "
    "strrchr strsep strsignal strspn strstr strtod strtof strtoimax strtok strtol strtold strtoq strtoul "
    "strtoumax strtouq strverscmp strxfrm swab swprintf swscanf symlink symlinkat sync syncfs syscall "
    "sysconf system tan tanh tcgetpgrp tcsetpgrp tee tempnam tgamma tgkill time timegm timelocal timespec "
    "timeval timex timezone tm tmpfile tmpnam toascii tolower totalorder totalordermag toupper towctrans "
    "towlower towupper trunc truncate ttyname ttyslot tzname tzset ualarm ucred ufromfp ufromfpx uint "
    "ulong umask ungetc ungetwc unlink unlinkat unlockpt unsetenv unshare uselocale ushort usleep "
    "utimensat valloc vasprintf vdprintf vfork vfprintf vfscanf vfwprintf vfwscanf vhangup vmsplice "
    "vprintf vscanf vsnprintf vsprintf vsscanf vswprintf vswscanf vwprintf vwscanf wcpcpy wcpncpy wcrtomb "
    "wcscasecmp wcscat wcschr wcschrnul wcscmp wcscoll wcscpy wcscspn wcsdup wcsftime wcslen wcsncasecmp "
    "wcsncat wcsncmp wcsncpy wcsnlen wcsnrtombs wcspbrk wcsrchr wcsrtombs wcsspn wcsstr wcstod wcstof "
    "wcstoimax wcstok wcstol wcstold wcstombs wcstoq wcstoul wcstoumax wcstouq wcswcs wcswidth wcsxfrm "
    "wctob wctomb wctrans wctype wcwidth wmemchr wmemcmp wmemcpy wmemmove wmempcpy wmemset wprintf write "
    "wscanf y0 y1 yn ";

} // namespace

bool IsReserved(std::string_view name) {
    static Words const keywords = Split(kKeywords);
    static Words const macros = Split(kMacros);
    return keywords.count(name) != 0 || macros.count(name) != 0;
}

bool IsGlobal(std::string_view name) {
    static Words const globals = Split(kGlobals);
    return globals.count(name) != 0;
}

} // namespace ZvXmlLib16::schema
