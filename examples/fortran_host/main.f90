! A Fortran host, through the C function alone.
!
!     fortran_host 'a/b' fraction.wmf
program fortran_host
    use, intrinsic :: iso_c_binding
    use, intrinsic :: iso_fortran_env, only: error_unit
    implicit none

    interface
        function string_to_emf_formula(text, path, width, height) &
                bind(c, name='StringToEMFFormula') result(done)
            import :: c_char, c_float, c_int
            character(kind=c_char), intent(in) :: text(*), path(*)
            real(c_float), intent(out) :: width, height
            integer(c_int) :: done
        end function
    end interface

    real(c_float) :: width, height
    integer(c_int) :: done

    if (command_argument_count() /= 2) then
        write (error_unit, '(a)') 'usage: fortran_host FORMULA FILE.wmf'
        stop 2
    end if
    done = string_to_emf_formula(argument(1), argument(2), width, height)
    ! Both sizes are 22 times the size in screen pixels.
    print '(i0, a, i0, a)', nint(width / 22), ' x ', nint(height / 22), ' pixels'

contains

    ! An argument of the command line, ended as C expects it.
    function argument(number) result(text)
        integer, intent(in) :: number
        character(len=:), allocatable :: text
        integer :: length

        call get_command_argument(number, length=length)
        allocate (character(len=length) :: text)
        call get_command_argument(number, text)
        text = text // c_null_char
    end function
end program
